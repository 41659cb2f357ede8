// A small report window with one of everything, on which the case runner itself is tested.
#pragma once

#include <cstdint>
#include <string>

#include "host/base/base_dock.h"
#include "host/components/edit.h"
#include "host/frames/select_entity_frame.h"
#include "tests/scripted/engine/case_run.h"

namespace goods {

// Runs "Exec Sample" when shown and 400 ms after the last key in Search_EDT. Its buttons misbehave on
// purpose.
class TSample_FRM : public TBaseDock_FRM {
 public:
  TSample_FRM(THost& host, int formMode, Variant customParameter, std::string settingsName);
  void FormShow() override;
  void WindowMessage(int code) override;

  TPanel Criteria_PNL{this, "Criteria_PNL", Flow::Row, "شرایط"};
  TEdit Search_EDT{this, "Search_EDT"};
  TEdit Code_EDT{this, "Code_EDT", InputKind::Integer};
  TCheckBox All_CHK{this, "All_CHK", "همه"};
  TComboBox Kind_CMB{this, "Kind_CMB"};
  TSelect_Entity_Frame Good_SEF{this, "Good_SEF"};
  TSmartDBGrid_QRT Sample_GRD{this, "Sample_GRD"};
  TButton Print_BTN{this, "Print_BTN"};
  TButton Exit_BTN{this, "Exit_BTN"};
  TButton Disabled_BTN{this, "Disabled_BTN"};
  TButton Message_BTN{this, "Message_BTN"};
  TButton Execute_BTN{this, "Execute_BTN"};
  TButton Document_BTN{this, "Document_BTN"};
  TButton Another_BTN{this, "Another_BTN"};
  TButton StayWaiting_BTN{this, "StayWaiting_BTN"};
  TButton HideTwice_BTN{this, "HideTwice_BTN"};
  TButton Throw_BTN{this, "Throw_BTN"};

 private:
  void Wire();

  TADOQuery query_;
  TDataSource source_;
  std::uint64_t lastKey_ = 0;
  bool waiting_ = false;
};

// Windows TSample_FRM, TPages_FRM and TEarly_FRM (which sends a statement before it is shown); export
// Open_Sample, no arguments.
CaseEnvironment SampleEnvironment();

}  // namespace goods
