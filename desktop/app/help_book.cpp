#include "desktop/app/help_book.h"

#include <QFile>

#include "desktop/views/shown_text.h"
#include "goods_reports.h"
#include "host/base/base_dock.h"

// The pages lie in a library of their own, whose resources are there only once it is asked for.
static void LoadPages() { Q_INIT_RESOURCE(help_pages); }

namespace goods {
namespace {

constexpr const char* kUsers = "users.md";
constexpr const char* kImport = "import.md";

QString TitleOf(const QString& file) {
  QFile page(":/help/fa/" + file);
  if (!page.open(QIODevice::ReadOnly)) return file;
  return QString::fromUtf8(page.readLine()).remove('#').trimmed();
}

std::vector<HelpPage> ReadPages() {
  LoadPages();
  std::vector<HelpPage> pages{{kHelpIndex, TitleOf(kHelpIndex)}};
  for (const ReportDescription& report : kReports) {
    const QString file = ToQt(report.HelpPage());
    pages.push_back({file, TitleOf(file)});
  }
  for (const char* file : {kImport, kUsers}) pages.push_back({file, TitleOf(file)});
  return pages;
}

}  // namespace

const std::vector<HelpPage>& HelpPages() {
  static const std::vector<HelpPage> kPages = ReadPages();
  return kPages;
}

QString HelpPageOf(const QString& window) {
  static const QStringList kWithUsers{"Users_FRM", "User_FRM", "Password_FRM"};
  if (window == "Import_FRM") return kImport;
  return kWithUsers.contains(window) ? kUsers : QString();
}

QUrl HelpUrl(const QString& file) { return QUrl("qrc:/help/fa/" + file); }

QString HelpPageOf(const TForm& form) {
  const auto* report = dynamic_cast<const TBaseDock_FRM*>(&form);
  const ReportDescription* shown =
      report == nullptr ? nullptr : FindReport(report->FormOptions_SFO.HelpKeyword);
  return shown == nullptr ? QString() : ToQt(shown->HelpPage());
}

}  // namespace goods
