#include "Boxes.h"

std::vector<std::string> BoxCatcher::Texts() const
{
    std::vector<std::string> texts;
    for (const CaughtBox& box : Caught())
        texts.push_back(box.text);
    return texts;
}
