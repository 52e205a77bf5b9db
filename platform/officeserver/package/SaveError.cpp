#include "package/SaveError.h"

#include <system_error>

namespace zek::office {

SaveError SaveError::System(int code, const std::string& action, const std::string& path)
{
    return SaveError(code, "Cannot " + action + " '" + path + "': " + std::generic_category().message(code));
}

} // namespace zek::office
