#pragma once

#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "standalone/host/control_event.h"
#include "standalone/host/effect.h"
#include "standalone/host/frame.h"
#include "standalone/host/services/panel.h"

namespace quiltor::standalone {

class CallContext;
class ParamValues;

// Gives the world of a layer at a layer time, or null for no layer there. The world must outlive the render.
using LayerSource = std::function<const World*(A_long time, A_u_long timeScale)>;

// One application of the effect to a layer. All calls belong on the host's main thread, but for `render...`,
// `resetup...` and `call`, which any thread may use, several at once.
class Instance {
 public:
  // Calls nothing yet.
  explicit Instance(Effect& effect);
  // Shuts down when that was not done.
  ~Instance();
  Instance(const Instance&) = delete;
  Instance& operator=(const Instance&) = delete;

  // --- Sequence data ---
  CallResult setUp();  // PF_Cmd_SEQUENCE_SETUP
  // PF_Cmd_SEQUENCE_RESETUP with a new handle that holds `flat`, with null, or with the handle that is kept now.
  CallResult resetupFrom(std::span<const unsigned char> flat);
  CallResult resetupFromNull();
  CallResult resetup();
  CallResult flatten();  // PF_Cmd_SEQUENCE_FLATTEN; the instance is flat afterwards
  // PF_Cmd_GET_FLATTENED_SEQUENCE_DATA: `flat` receives a copy of the bytes, empty when the effect stored null.
  CallResult getFlattened(std::vector<unsigned char>& flat);
  // PF_Cmd_SEQUENCE_SETDOWN when anything was set up. Harmless when repeated.
  CallResult shutDown();
  [[nodiscard]] PF_Handle sequenceData() const { return sequenceData_; }
  // The host lets go of the data without a word to the effect; whoever asked for that sets them down.
  PF_Handle detachSequenceData();
  // The bytes of the handle that is kept now; empty without one.
  [[nodiscard]] std::vector<unsigned char> sequenceBytes() const;

  // --- Parameter values, by index. A wrong index or kind throws std::invalid_argument. ---
  void setNumber(int index, double value);  // sliders; angles in degrees
  void setChoice(int index, int item);      // popups, from 1
  void setChecked(int index, bool on);
  void setColor(int index, const PF_Pixel& color);
  void setPointPercent(int index, double x, double y);  // percent of the layer
  void setPointPixels(int index, double x, double y);   // full-resolution pixels of the layer
  void setPath(int index, PF_PathID id);
  void setLayer(int index, const World* world);  // null: no layer; the world must outlive the renders
  void setLayer(int index, LayerSource source);
  // Changes the delivered record of a parameter at a given time, after the values above were applied.
  using Adjust = std::function<void(PF_ParamDef&, A_long time, A_u_long timeScale)>;
  void adjust(int index, Adjust hook);

  // --- Frames ---
  RenderResult render(const Frame& frame);  // frame setup, render, frame setdown
  // Pre-render, render, the delete function. The video editor has no smart rendering: std::logic_error.
  RenderResult renderSmart(const Frame& frame);

  // --- User interface ---
  CallResult userChanged(int index);  // PF_Cmd_USER_CHANGED_PARAM with the current values
  CallResult updateUi();              // PF_Cmd_UPDATE_PARAMS_UI with the current values
  CallResult doDialog();              // PF_Cmd_DO_DIALOG
  // What a host sends once the user has changed a value: the first when the parameter is supervised, then the second
  // when the effect asks for it. Gives the first answer that is an error, or the last.
  CallResult changedByUser(int index);
  CallResult showPanel();  // the refresh that a host sends with it, when the effect asks for it
  // An event in a custom control; the first tells the effect of the pane, too.
  EventResult send(const ControlEvent& event);
  // What a host sends when the user clicks on the control of a parameter, and the refresh of the panel when the effect
  // asks for it.
  EventResult clickedByUser(int index);
  EventResult drawControl(int index);
  // A parameter as the panel shows it.
  [[nodiscard]] const PanelEntry& shown(int index) const { return panel_.at(static_cast<std::size_t>(index)); }

  // Any selector for this instance. The sequence handle that the effect stores is kept as after the typed calls.
  CallResult call(const Call& call);
  // The current values as the effect gets them in `params`; entry 0 holds `input` (or no pixels). Valid while the
  // returned object lives.
  class ParamArray {
   public:
    [[nodiscard]] PF_ParamDef** pointers() { return pointers_.data(); }
    [[nodiscard]] PF_ParamDef& operator[](std::size_t index) { return values_[index]; }

   private:
    friend class Instance;
    std::vector<PF_ParamDef> values_;
    std::vector<PF_ParamDef*> pointers_;
  };
  [[nodiscard]] ParamArray params(const World* input = nullptr) const;

 private:
  CallResult run(const Call& call, std::vector<unsigned char>* flat);
  CallResult callWithParams(A_long selector, void* extra);
  void keepSequenceData(const Call& call, const CallResult& result, std::vector<unsigned char>* flat);
  void discardSequenceData();
  void fillContext(CallContext& context);
  void closePane();

  Effect& effect_;
  std::unique_ptr<ParamValues> values_;
  Panel panel_;
  PF_Context pane_{};
  PF_Context* panePointer_ = &pane_;
  bool paneOpen_ = false;
  Drawing* drawing_ = nullptr;  // while a draw event lasts
  PF_Handle sequenceData_ = nullptr;
  bool setUp_ = false;
  bool flat_ = false;
};

}  // namespace quiltor::standalone
