#include "standalone/host/call_context.h"
#include "standalone/host/instance.h"

namespace quiltor::standalone {
namespace {

constexpr int kMargin = 10;

PF_EventExtra recordOf(const ControlEvent& event, PF_ContextH context) {
  PF_EventExtra extra{};
  extra.contextH = context;
  extra.e_type = event.type;
  extra.effect_win.index = event.index;
  extra.effect_win.area = event.area;
  extra.effect_win.current_frame = event.frame;
  extra.effect_win.param_title_frame = {kMargin, event.frame.top, event.frame.left - kMargin, event.frame.bottom};
  extra.effect_win.horiz_offset = kMargin;
  extra.evt_in_flags = event.inFlags;
  if (event.type == PF_Event_DO_CLICK) {
    extra.u.do_click.screen_point = event.point;
    extra.u.do_click.num_clicks = 1;
  } else if (event.type == PF_Event_DRAW) {
    extra.u.draw.update_rect = event.frame;
    extra.u.draw.depth = 32;
  }
  return extra;
}

}  // namespace

EventResult Instance::send(const ControlEvent& event) {
  if (!paneOpen_ && event.type != PF_Event_NEW_CONTEXT) {
    paneOpen_ = true;
    send({.type = PF_Event_NEW_CONTEXT, .index = event.index});
  }
  pane_.w_type = PF_Window_EFFECT;
  PF_EventExtra extra = recordOf(event, &panePointer_);
  EventResult result;
  if (event.type == PF_Event_DRAW) {
    result.drawing =
        std::make_unique<Drawing>(effect_.host().findings(), event.frame.right + kMargin, event.frame.bottom + kMargin);
  }
  drawing_ = result.drawing.get();
  ParamArray array = params();
  result.call = call({.selector = PF_Cmd_EVENT, .params = array.pointers(), .extra = &extra});
  drawing_ = nullptr;
  result.outFlags = extra.evt_out_flags;
  return result;
}

void Instance::closePane() {
  if (!paneOpen_) return;
  send({.type = PF_Event_CLOSE_CONTEXT});
  paneOpen_ = false;
}

EventResult Instance::clickedByUser(int index) {
  EventResult result = send({.type = PF_Event_DO_CLICK, .index = index});
  if (result.succeeded() && (result.call.out.out_flags & PF_OutFlag_REFRESH_UI) != 0) {
    const CallResult refresh = updateUi();
    if (!refresh.succeeded()) result.call = refresh;
  }
  return result;
}

EventResult Instance::drawControl(int index) { return send({.type = PF_Event_DRAW, .index = index}); }

}  // namespace quiltor::standalone
