// TBaseDock_FRM: the base of every report window.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/base/custom_parameter.h"
#include "host/components/form.h"
#include "host/components/grid.h"
#include "host/components/print.h"
#include "host/components/standard.h"

namespace goods {

// Whether the list may be printed, and on which software part the user needs permission 23 for it; 0 asks for
// none.
struct TPrintOption {
  bool Enabled = true;
  int SoftwarePart = 0;
};

// A window's own class ends its constructor with Initialise, which fires FormCreate and then hands the custom
// parameter that it was constructed with to OnCustomParameter. A window may be handed another one at any
// time; reading it presets controls, and statements run only once the window is shown.
class TBaseDock_FRM : public TForm {
 public:
  TBaseDock_FRM(THost& host, std::string name, int formMode, Variant customParameter,
                std::string settingsName);
  TBaseDock_FRM(THost& host, std::string name, int formMode, std::string settingsName);
  ~TBaseDock_FRM() override;

  int FormMode() const { return formMode_; }
  // What the host calls the window: FormOptions_SFO's title, else the plain caption.
  std::string HostTitle() const;
  const std::string& SettingsName() const { return settingsName_; }

  // text is for the host's own use and may be empty.
  void SetCustomParameter(Variant parameter, std::string_view text);

  // The grid's sort as text, to be put on its query after each filter.
  static std::string GetGridSort(const TSmartDBGrid_QRT& grid) { return grid.GetSort(); }

  // Gives the control the common short-cut keys, or the common pop-up menu (column chooser, copy, export,
  // print).
  void SetShortCut(TControl& control);
  void SetPopMenu(TControl& control);
  bool HasShortCut(const TControl& control) const;
  bool HasPopMenu(const TControl& control) const;

  // Prints or previews the list: asks for the print right, points the print component at the grid, with the
  // window's caption as title and options 5. Without the right nothing happens.
  void BasePrintList_Click();
  // The right is there and the list is about to be printed: the moment to fill PrintDBGridEh. False prints
  // nothing.
  virtual bool PreparePrint();
  // Adds the lines above the printed grid; the base has none.
  virtual void PrintDBGridEhBeforePrint(std::vector<std::string>& lines);

  // What the print button would print, for a host that writes it to a file: the window's caption, the lines
  // above the list, and the grid that is shown, null where the window prints none. Asks for no right: that is
  // PrintOption's.
  TSmartDBGrid_QRT* PrintedGrid() const { return printedGrid_; }
  std::vector<std::string> PrintLines();

  // The layout of a grid and its sort, kept per report and two numbers in the file
  // <report>_<first>_<second>.ini of the settings folder, which is written whole or not at all. A file that
  // is not there, or cannot be read or written, changes nothing.
  void LoadGridSettings(TSmartDBGrid_QRT& grid, std::string_view report, std::int64_t first,
                        std::int64_t second);
  void SaveGridSettings(const TSmartDBGrid_QRT& grid, std::string_view report, std::int64_t first,
                        std::int64_t second);

  // F9 prints and Esc closes through these buttons, as far as they can be clicked.
  void FormKeyDown(TKey& key) override;
  // Writes the layouts that are not as they were loaded, and lifts the user's conditions on the columns and
  // groups.
  void FormClose() override;

  TFormOptions FormOptions_SFO{this, "FormOptions_SFO"};
  TPrintDBGridEh PrintDBGridEh{this, "PrintDBGridEh"};
  TPrintOption PrintOption;

 protected:
  void Initialise();
  // A new custom parameter is there to be read.
  virtual void OnCustomParameter(const CustomParameter& parameter);
  // Whether the base keeps a grid's layout from one window to the next from its naming on, or the window sees
  // to it: with KeepLayout, once its columns are there, or in a way of its own.
  enum class GridLayout { Kept, Own };
  // Names the window's buttons for the common keys and its grid for printing, and wires them. A layout that
  // is kept is loaded when its grid is named for the first time, the columns being there, and written as the
  // window closes: under the window's name without "_FRM", its print right's software part, and the number of
  // the grid, from 0.
  void SetCommonControls(TSmartDBGrid_QRT& grid, TButton& print, TButton& exit,
                         GridLayout layout = GridLayout::Kept);
  // Loads the layout of a grid whose columns are there, and has it written as the window closes. What the
  // window's rules set of its columns is set after that. Nothing happens for a grid that is kept already.
  void KeepLayout(TSmartDBGrid_QRT& grid);

 private:
  struct KeptLayout {
    TSmartDBGrid_QRT* grid;
    std::string file;
    std::string text;  // as it was loaded or written last
  };

  int formMode_;
  Variant customParameter_;
  std::string settingsName_;
  std::vector<KeptLayout> layouts_;
  TSmartDBGrid_QRT* printedGrid_ = nullptr;
  TButton* printButton_ = nullptr;
  TButton* exitButton_ = nullptr;
  std::vector<const TControl*> withShortCut_;
  std::vector<const TControl*> withPopMenu_;
};

}  // namespace goods
