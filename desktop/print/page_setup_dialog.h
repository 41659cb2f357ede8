// PageSetupDialog: text size, direction of the sheet and widths of the columns on paper.
#pragma once

#include <QDialog>
#include <QHash>
#include <functional>
#include <vector>

#include "desktop/print/page_options.h"
#include "host/services/report_table.h"

class QComboBox;
class QFormLayout;
class QWidget;

namespace goods {

class SpinBox;

class PageSetupDialog : public QDialog {
 public:
  // The choices as they are, for a table of these columns; those of other columns stay.
  PageSetupDialog(const PageOptions& options, const std::vector<ReportColumn>& columns, QWidget* parent);

  PageOptions Options() const;
  // Told after each change, so that what it comes to can be seen.
  std::function<void()> OnChange;

 private:
  QComboBox* AddCombo(QFormLayout& form, const char* name, const QString& title);
  void AddWidths(const std::vector<ReportColumn>& columns, QFormLayout& form, QWidget& parent);
  void Show(const PageOptions& options);
  void Changed();

  PageOptions given_;
  QComboBox* textSize_;
  QComboBox* sheet_;
  struct ColumnWidth {
    std::string name;
    SpinBox* box;
  };
  std::vector<ColumnWidth> widths_;
  bool showing_ = false;
};

}  // namespace goods
