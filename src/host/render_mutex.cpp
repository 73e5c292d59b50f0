#include "host/render_mutex.h"

namespace quiltor {

NamedMutex& renderMutex() {
  static NamedMutex mutex("MYMU");
  return mutex;
}

}  // namespace quiltor
