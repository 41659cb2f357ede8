// TBaseSearch_FRM: the base of every criteria dialog.
#pragma once

#include <string>

#include "host/components/form.h"
#include "host/components/search_manager.h"
#include "host/components/standard.h"

namespace goods {

// Accepting closes it with kModalOk. What it holds stays while the object lives.
class TBaseSearch_FRM : public TForm {
 public:
  TBaseSearch_FRM(THost& host, std::string name);
  ~TBaseSearch_FRM() override;

  virtual void Select_BTNClick();
  virtual void Del_BTNClick();
  void Exit_BTNClick() { Close(); }

  // Enter moves the focus on as Tab does, F3 accepts (first the edit that is being typed in), Esc closes.
  void FormKeyDown(TKey& key) override;

  TQeratSearchManager QeratSearchManager1{this, "QeratSearchManager1"};
};

}  // namespace goods
