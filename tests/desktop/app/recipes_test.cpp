// The recipes of the command line's page run as they stand.
#include <QDir>
#include <QRegularExpression>

#include "company/demo/demo_company.h"
#include "tests/desktop/app/screenless_kit.h"

namespace goods {
namespace {

struct Block {
  QString language;
  QString text;
};

std::vector<Block> BlocksOf(const QString& page) {
  static const QRegularExpression kBlock("```(sh|toml)\\n(.*?)```",
                                         QRegularExpression::DotMatchesEverythingOption);
  std::vector<Block> blocks;
  for (auto found = kBlock.globalMatch(page); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    blocks.push_back({match.captured(1), match.captured(2)});
  }
  return blocks;
}

class Recipes : public ScreenlessTest {};

TEST_F(Recipes, TenOfThemRunAsTheyStand) {
  QFile page(GOODS_COMMAND_LINE_PAGE);
  ASSERT_TRUE(page.open(QIODevice::ReadOnly));
  QFile::copy(ToQt(SmallCompany()), At("shop.goods"));
  WriteWholeFile(Path("password"), "admin\n");
  environment_.remove("GOODS_PASSWORD");
  environment_.insert("PATH", QFileInfo(GOODS_REPORT_PROGRAM).path() + ":" + environment_.value("PATH"));
  int recipes = 0;
  for (const Block& block : BlocksOf(QString::fromUtf8(page.readAll()))) {
    if (block.language == "toml") {
      const QString name = block.text.section('\n', 0, 0).remove("# ");
      WriteWholeFile(Path(name.toUtf8().constData()), FromQt(block.text));
      continue;
    }
    const QStringList before = QDir(folder_.path()).entryList(QDir::Files);
    QProcess shell;
    shell.setProcessEnvironment(environment_);
    shell.setWorkingDirectory(folder_.path());
    shell.start("bash", {"-e", "-c", block.text});
    ASSERT_TRUE(shell.waitForFinished(120'000));
    EXPECT_EQ(shell.exitCode(), 0) << FromQt(block.text)
                                   << FromQt(QString::fromUtf8(shell.readAllStandardError()));
    const bool writes = !block.text.contains("--fail-if-rows ");
    if (writes) {
      EXPECT_GT(QDir(folder_.path()).entryList(QDir::Files).size(), before.size()) << FromQt(block.text);
    }
    ++recipes;
  }
  EXPECT_EQ(recipes, 10);
}

}  // namespace
}  // namespace goods
