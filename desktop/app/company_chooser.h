// CompanyChooser: which company to work with.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>

#include "company/company.h"
#include "desktop/app/services/desktop_settings.h"

class QLabel;
class QListWidget;

namespace goods {

struct OpenedCompany {
  std::unique_ptr<ICompany> company;
  QString path;  // or the description of a company on a server, without its password
  bool demo = false;
};

// Lists the demo company and the files and databases that were opened before. Stays until a company is open
// or the user gives up: what keeps one from opening is said in the window.
class CompanyChooser : public QDialog {
 public:
  // Makes the demo company where it is missing and gives back its path; throws CompanyError.
  using DemoMaker = std::function<QString()>;

  // settings must outlive it; its list of recent companies is kept up to date.
  CompanyChooser(DesktopSettings& settings, DemoMaker demo, QWidget* parent = nullptr);

  // company is null when the user gave up.
  OpenedCompany Choose();

  // What the list's rows and the button do; public for who picks a file in another way.
  void OpenDemo();
  void OpenFile(const QString& path);
  // known: the description of a company on a server that was kept, or empty; the password is asked.
  void OpenServer(const QString& known);
  // Makes a company from files, and opens it where the user wants that.
  void ImportFiles();

 private:
  void LayOut();
  void OpenCurrent();
  void BrowseForFile();
  void AddRecent(const QString& description);
  void Open(const QString& path, bool demo);
  void ShowProblem(const QString& text);

  DesktopSettings& settings_;
  DemoMaker demo_;
  QListWidget* list_ = nullptr;  // what the window shows is made before it is first needed
  QLabel* problem_ = nullptr;
  OpenedCompany opened_;
};

}  // namespace goods
