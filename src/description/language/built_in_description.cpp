#include "description/language/built_in_description.h"

namespace quiltor {

// Deliberate, because projects and other readers of this text rely on it as it stands: "default=0" on the lines of two
// maxima sets nothing, the offset ends with a blank, and the tint is written in bytes although it is read in fractions.
std::string_view builtInDescription() {
  return R"([par]
 type=layer
 param=in0
[par]
 type=select
 param=source
 display=Source
 text=Layer|File
 GroupSwitch=112
 default=1
[par]
 type=layer
 param=patsrc
 display=Pattern Layer
 Group=112
 visibility=2
[par]
 type=custom
 param=txtsrc
 display=Pattern
 Group=113
 visibility=0
[par]
 type=bool
 param=lock
 display=Lock Pattern
[par]
 type=select
 param=tilemode
 display=Tile Mode
 text=Single|Tiled|Mirrored
 default=1
[par]
 type=select
 param=blendmode
 display=Blend Mode
)"
         " text=Normal|Stencil Alpha|Stencil Luma|Silhouette Alpha|Silhouette Luma|Lighten|Darken|Multiply|Average|"
         "Difference|Negation|Exclusion|Screen|Overlay|Soft Light|Hard Light|Color Dodge|Color Burn|Linear Dodge|"
         "Linear Burn|Linear Light|Vivid Light|Pin Light|Hard Mix|Reflect|Glow|Phoenix\n"
         R"([par]
 type=float
 param=opacity
 display=Opacity
 flags=1
 min=0
 max=100
 default=100
[par]
 type=float
 param=scale
 display=Scale
 flags=1
 min=1
 max=500
 default=100
[par]
 type=point
 param=offset
 display=Offset
)"
         " default=0.5|0.5 \n"
         R"([par]
 type=angle
 param=rotation
 display=Rotation
[par]
 type=bool
 param=invert
 display=Invert Pattern Colors
[par]
 type=color
 param=tintcolor
 display=Tint Color
 default=73|188|56
[par]
 type=float
 param=tintopacity
 display=Tint Opacity
 flags=1
 min=0
 max=100 default=0
[par]
 type=float
 param=blur
 display=Blur
 flags=1
 min=0
 max=100 default=0
[par]
 type=select
 param=mask
 display=Mask
 flags=99
)";
}

}  // namespace quiltor
