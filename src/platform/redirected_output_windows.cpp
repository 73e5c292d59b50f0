#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include <cstdio>

#include "platform/redirected_output.h"
#include "platform/wide_text_windows.h"

namespace quiltor {

const char* const kNullDevice = "NUL";

RedirectedOutput::RedirectedOutput(const std::string& path) {
  std::fflush(stdout);
  const int standardOutput = _fileno(stdout);
  output_ = _dup(standardOutput);
  const int file = _wopen(systemPath(path).c_str(), _O_CREAT | _O_TRUNC | _O_WRONLY | _O_BINARY, _S_IREAD | _S_IWRITE);
  if (output_ >= 0 && file >= 0) _dup2(file, standardOutput);
  if (file >= 0) _close(file);
}

RedirectedOutput::~RedirectedOutput() {
  std::fflush(stdout);
  if (output_ < 0) return;
  _dup2(output_, _fileno(stdout));
  _close(output_);
}

}  // namespace quiltor
