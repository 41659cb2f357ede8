// The help pages of docs/fa, which are embedded in the program: what there is, and which page tells of a
// window.
#pragma once

#include <QString>
#include <QUrl>
#include <vector>

namespace goods {

class TForm;

inline constexpr const char* kHelpIndex = "index.md";

struct HelpPage {
  QString file;
  QString title;  // the page's first heading
};

// The index, then the reports in the order of the start page, then the windows that reports open.
const std::vector<HelpPage>& HelpPages();
QUrl HelpUrl(const QString& file);

// The page of a report window; empty for a window that has none, such as a criteria dialog.
QString HelpPageOf(const TForm& form);
// The page of one of the program's own windows, by its object name; empty for one without.
QString HelpPageOf(const QString& window);

}  // namespace goods
