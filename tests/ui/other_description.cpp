#include "description/language/built_in_description.h"

namespace quiltor {

std::string_view builtInDescription() {
  return R"([par]
 type=layer
 param=in0
[par]
 type=select
 param=mode
 text=One|Two|Three
 GroupSwitch=10
[par]
 type=float
 param=of10
 max=1
 Group=10
[par]
 type=float
 param=of11
 max=1
 Group=11
[par]
 type=float
 param=of12
 max=1
 Group=12
 visibility=1
[par]
 type=float
 param=ofnone
 max=1
[par]
 type=bool
 param=more
 GroupSwitch=200
[par]
 type=float
 param=of201
 max=1
 Group=201
 visibility=2
[par]
 type=float
 param=ofboth
 max=1
 Group=11
 Group1=201
[par]
 type=text
 param=title
 display=Title: #TEXT
 text=first
 special=3
[par]
 type=text
 param=plain
 display=Plain
 text=second
 special=4
)";
}

}  // namespace quiltor
