// What the application's tests share: a small demo company, the loaded module, a host for a user.
#pragma once

#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "company/company.h"
#include "desktop/app/desktop_host.h"
#include "desktop/tools/window_driver.h"
#include "desktop/views/form_view.h"
#include "desktop/views/shown_text.h"
#include "host/components/form.h"
#include "host/components/grid.h"

namespace goods {

// A demo company of 60 goods, 3 stores and 2,000 movements; made once, only read afterwards.
const std::string& SmallCompany();

// The busiest good of a company has movements of many kinds and in every store.
std::int64_t BusiestGood(ICompany& company);

// A folder, a company and settings of their own for each test; what steps throw fails the test.
class DesktopTest : public testing::Test {
 protected:
  DesktopTest();
  ~DesktopTest() override;
  void TearDown() override;

  std::string Path(const char* name) const { return FromQt(folder_.filePath(name)); }
  std::string Written(const std::string& path) const;

  // The module with a host for that user of the company, whose password is the login.
  DesktopHost& HostFor(const char* login, DesktopHost::ConnectionWrapper wrap = {});
  ModuleLibrary& Module() { return *module_; }
  ICompany& Company() { return *company_; }
  DesktopSettings& Settings() { return settings_; }

  QTemporaryDir folder_;

 private:
  std::unique_ptr<ICompany> company_;
  DesktopSettings settings_;
  std::unique_ptr<StatementLog> log_;
  std::unique_ptr<ModuleLibrary> module_;
  std::unique_ptr<DesktopHost> host_;
};

// The form behind a report's window, and its components by their published names.
TForm& FormOf(QWidget& window);
template <typename Kind>
Kind& Component(QWidget& window, const char* path) {
  auto* component = dynamic_cast<Kind*>(FormOf(window).FindComponent(path));
  if (component == nullptr) throw std::runtime_error(std::string("no component ") + path);
  return *component;
}

// Steps for the modal window of that name, which may open long after, and after others in between; it is then
// closed. Nothing happens where it does not open.
void WhenShown(const QString& name, std::function<void(QWidget&)> steps);

// Types a good's code into the stock card and accepts it.
void TypeGood(QWidget& window, std::int64_t code);
// Rows in the report's grid.
std::size_t RowCount(QWidget& window);

}  // namespace goods
