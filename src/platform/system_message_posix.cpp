#include "platform/system_message.h"

namespace quiltor {

std::string systemMessage(const std::error_code& error, const std::filesystem::path&) { return error.message(); }

}  // namespace quiltor
