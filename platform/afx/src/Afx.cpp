#include <afx.h>
