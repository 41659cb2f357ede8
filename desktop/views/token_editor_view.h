// View of a token editor: the field with its chips, and a list of what can be added.
#pragma once

#include <QPointer>

#include "desktop/views/control_view.h"
#include "host/components/token_editor.h"

class QListWidget;

namespace goods {

class TokenField;
class WindowOverlay;

// The list opens while something is typed, with Down, and with a click; the keyboard stays in the edit. Up
// and Down choose in the list, Enter adds, Escape closes it.
class TokenEditorView : public ControlView {
 public:
  TokenEditorView(FormView& form, TTokenEditor& editor, QWidget* parent);
  ~TokenEditorView() override;
  QWidget* FocusWidget() const override;
  void Refresh() override;
  void Connected() override;

  TokenField& Field() const { return *field_; }
  QListWidget& List() const { return *list_; }
  bool ListIsOpen() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void OpenList();
  void CloseList();
  void FillList();
  bool ListKey(int key);
  void AddRow(int row);

  TTokenEditor& editor_;
  TokenField* field_;
  QListWidget* list_;
  QPointer<WindowOverlay> overlay_;
};

}  // namespace goods
