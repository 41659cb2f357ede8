// What stands behind the address that a program has of its session.
#pragma once

#include <QThread>
#include <memory>

#include "desktop/app/desktop_session.h"
#include "desktop/app/help_key.h"
#include "desktop/library/c_services.h"

class QApplication;

struct goods_desktop {
 public:
  // Fails with the codes of GoodsDesktop_Create.
  explicit goods_desktop(const goods_desktop_options& options);
  ~goods_desktop();

  void Open(const goods_desktop_report& report);
  void CloseReports();
  // False while a report is being shown.
  bool LetGo();
  bool IsOnItsThread() const { return QThread::currentThread() == thread_; }

 private:
  std::string Text(goods_desktop_text text) const { return goods::TextIn(text, tables_.encoding); }
  std::unique_ptr<goods::ICompany> OpenTheCompany(const goods_desktop_options& options) const;
  goods::UserRecord SignIn(const goods_desktop_options& options);

  QThread* thread_;
  goods::OwnTables tables_;
  std::unique_ptr<goods::ModuleLibrary> module_;
  std::unique_ptr<goods::ICompany> company_;
  std::unique_ptr<goods::OwnSettings> settings_;
  std::unique_ptr<goods::DesktopSession> session_;
  std::unique_ptr<goods::HelpKey> helpKey_;
};

namespace goods {

// The program's QApplication, or one that is made here and lives until the program ends; made says which.
QApplication& TheApplication(bool& made);

}  // namespace goods
