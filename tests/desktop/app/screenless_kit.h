// What the tests of goods-report share: the program, run on the small company.
#pragma once

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>

#include "company/files/whole_file.h"
#include "tests/desktop/app/kit.h"

namespace goods {

class ScreenlessTest : public DesktopTest {
 protected:
  ScreenlessTest() { environment_.insert("GOODS_PASSWORD", "admin"); }

  // The program with these arguments alone.
  int RunBare(const QStringList& arguments) {
    QProcess program;
    program.setProcessEnvironment(environment_);
    program.setWorkingDirectory(folder_.path());
    program.start(GOODS_REPORT_PROGRAM, arguments);
    EXPECT_TRUE(program.waitForFinished(120'000));
    errors_ = QString::fromUtf8(program.readAllStandardError());
    output_ = QString::fromUtf8(program.readAllStandardOutput());
    return program.exitCode();
  }
  // On the small company as that user, whose password is the login.
  int Run(const QStringList& arguments, const char* user = "admin") {
    environment_.insert("GOODS_PASSWORD", user);
    return RunBare(QStringList{"--company", ToQt(SmallCompany()), "--user", user} + arguments);
  }
  QString At(const char* name) const { return folder_.filePath(name); }
  QJsonObject Json(const char* name) const {
    return QJsonDocument::fromJson(QByteArray::fromStdString(Written(Path(name)))).object();
  }

  QProcessEnvironment environment_ = QProcessEnvironment::systemEnvironment();
  QString errors_;
  QString output_;
};

}  // namespace goods
