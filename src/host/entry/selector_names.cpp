#include "host/entry/selector_names.h"

#include "hostapi/effect.h"
#include "hostapi/selector_names.h"

namespace quiltor {

const char* selectorName(A_long selector) {
  return selector >= PF_Cmd_ABOUT && selector <= PF_Cmd_RESERVED2 ? kSelectorNames[selector] : "unknown";
}

}  // namespace quiltor
