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

  // A dialog places Buttons_PNL at its end; the buttons do what these say.
  virtual void Select_BTNClick();
  virtual void Del_BTNClick();
  void Exit_BTNClick() { Close(); }

  // Enter moves the focus on as Tab does, F3 accepts (first the edit that is being typed in), Esc closes.
  void FormKeyDown(TKey& key) override;

  TQeratSearchManager QeratSearchManager1{this, "QeratSearchManager1"};
  TPanel Buttons_PNL{this, "Buttons_PNL", Flow::Row};
  TButton Select_BTN{this, "Select_BTN", "انتخاب F3"};
  TButton Del_BTN{this, "Del_BTN", "پاک کردن"};
  TButton EXit_BTN{this, "EXit_BTN", "خروج Esc"};
};

}  // namespace goods
