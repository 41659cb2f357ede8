// goods-report: every report without a screen, with the criteria, rights and exit codes of its command line.
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <algorithm>
#include <iterator>

#include <sys/stat.h>
#include <unistd.h>

#include "company/interchange/workbook.h"
#include "desktop/requests/report_specs.h"
#include "tests/desktop/app/kit.h"
#include "tests/desktop/app/screenless_kit.h"

namespace goods {
namespace {

class Screenless : public ScreenlessTest {};

TEST_F(Screenless, TheStockCardOfTheBusiestGoodIsWrittenInEveryFormatAtOnce) {
  EXPECT_EQ(Run({"--pdf", At("card.pdf"), "--text", At("card.txt"), "--csv", At("card.csv"), "--json",
                 At("card.json"), "--xlsx", At("card.xlsx")}),
            0)
      << FromQt(errors_);
  EXPECT_EQ(Written(Path("card.pdf")).substr(0, 5), "%PDF-");
  EXPECT_EQ(Written(Path("card.xlsx")).substr(0, 2), "PK");
  const std::string text = Written(Path("card.txt"));
  const BusyGood good = Company().ListBusyGoods(1).at(0);
  EXPECT_EQ(text.substr(0, text.find('\n')), "کاردکس کالا");
  EXPECT_NE(text.find(good.name), std::string::npos);
  // Title, good, blank, captions and two rules, the rows, the footer.
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), good.movements + 7);
  EXPECT_EQ(Json("card.json")["rows"].toArray().size(), good.movements);
  const std::string csv = Written(Path("card.csv"));
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), good.movements + 1);
}

TEST_F(Screenless, ARangeOfDatesLeavesTheOtherRowsOut) {
  EXPECT_EQ(Run({"--from", "1402/01/01", "--to", "1402/12/29", "--text", At("card.txt")}), 0)
      << FromQt(errors_);
  const std::string text = Written(Path("card.txt"));
  EXPECT_NE(text.find("\n1402/"), std::string::npos);
  EXPECT_EQ(text.find("\n1401/"), std::string::npos);
  EXPECT_EQ(text.find("\n1403/"), std::string::npos);
  // Turned round: the others alone.
  EXPECT_EQ(
      Run({"--from", "1402/01/01", "--to", "1402/12/29", "--exclude", "from", "--text", At("card.txt")}), 0);
  EXPECT_EQ(Written(Path("card.txt")).find("\n1402/"), std::string::npos);
}

TEST_F(Screenless, ListNamesEveryReportAndDescribeTellsOfEach) {
  EXPECT_EQ(RunBare({"list"}), 0);
  const QStringList lines = output_.split('\n', Qt::SkipEmptyParts);
  EXPECT_EQ(lines.size(), static_cast<qsizetype>(ReportSpecs().size()));
  for (const ReportSpec& report : ReportSpecs()) {
    const QString name = ToQt(report.Name());
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(),
                            [&](const QString& line) { return line.startsWith(name + " "); }));
    EXPECT_EQ(RunBare({"describe", name}), 0) << report.Name() << FromQt(errors_);
    for (const ReportCriterion& criterion : report.criteria) {
      EXPECT_TRUE(output_.contains("--" + ToQt(criterion.option))) << report.Name();
    }
    if (report.through.empty()) {
      EXPECT_TRUE(output_.contains("\n  * ")) << report.Name() << FromQt(output_);
    }
  }
  EXPECT_EQ(RunBare({"describe", "nothing"}), 2);
  // Numbers that stand for something are told with it.
  EXPECT_EQ(RunBare({"describe", "detail-search"}), 0);
  EXPECT_TRUE(output_.section("\n--operation:\n", 1).contains("فروش")) << FromQt(output_);
}

TEST_F(Screenless, EveryReportWithoutCriteriaIsWritten) {
  for (const ReportSpec& report : ReportSpecs()) {
    QStringList arguments{"--report", ToQt(report.Name()), "--json", At("out.json")};
    const bool required = std::any_of(report.criteria.begin(), report.criteria.end(),
                                      [](const ReportCriterion& each) { return each.required; });
    if (required) {
      EXPECT_EQ(Run(arguments), 2) << report.Name();
      continue;
    }
    ASSERT_EQ(Run(arguments), 0) << report.Name() << FromQt(errors_);
    const QJsonObject json = Json("out.json");
    EXPECT_FALSE(json["columns"].toArray().isEmpty()) << report.Name();
    for (const QJsonValue& row : json["rows"].toArray()) {
      ASSERT_EQ(row.toArray().size(), json["columns"].toArray().size());
    }
    QFile::remove(At("out.json"));
  }
}

TEST_F(Screenless, ColumnsAndSortAreThoseThatWereAskedFor) {
  ASSERT_EQ(
      Run({"--report", "turnover-list", "--columns", "Name,Code", "--sort=-Code", "--json", At("a.json")}), 0)
      << FromQt(errors_);
  const QJsonObject json = Json("a.json");
  ASSERT_EQ(json["columns"].toArray().size(), 2);
  EXPECT_EQ(json["columns"].toArray()[0].toObject()["name"].toString(), "Name");
  const QJsonArray rows = json["rows"].toArray();
  ASSERT_GT(rows.size(), 2);
  for (qsizetype i = 1; i < rows.size(); ++i) {
    EXPECT_GT(rows[i - 1].toArray()[1].toInt(), rows[i].toArray()[1].toInt());
  }
  EXPECT_EQ(Run({"--report", "turnover-list", "--columns", "Nothing", "--json", At("b.json")}), 2);
  EXPECT_FALSE(QFile::exists(At("b.json")));
}

TEST_F(Screenless, TotalsByUnitStandInFilesOfReportsWhoseRowsNameNoUnit) {
  for (const QStringList& report :
       {QStringList{"overall-turnover", "--tab", "quantity"}, QStringList{"store-stock"}}) {
    SCOPED_TRACE(FromQt(report.front()));
    ASSERT_EQ(Run(QStringList{"--report"} + report +
                  QStringList{"--json", At("units.json"), "--text", At("units.txt"), "--csv", At("units.csv"),
                              "--xlsx", At("units.xlsx"), "--pdf", At("units.pdf")}),
              0)
        << FromQt(errors_);
    const QJsonObject json = Json("units.json");
    const QJsonArray totals = json["totals"].toArray();
    const QJsonArray units = json["units"].toArray();
    ASSERT_GT(units.size(), 1);
    int told = 0;
    for (int c = 0; c < totals.size(); ++c) {
      double sum = 0;
      bool any = false;
      for (const QJsonValue& unit : units) {
        const QJsonValue figure = unit.toObject()["totals"].toArray()[c];
        any = any || figure.isDouble();
        sum += figure.toDouble();
      }
      if (!any) continue;
      ++told;
      EXPECT_NEAR(sum, totals[c].toDouble(), 1e-6) << c;
    }
    EXPECT_GT(told, 2);
    const std::string text = Written(Path("units.txt"));
    const std::string title = "جمع (" + FromQt(units[0].toObject()["unit"].toString()) + ")";
    EXPECT_NE(text.find("\n" + title), std::string::npos);
    EXPECT_EQ(Written(Path("units.csv")).find("جمع"), std::string::npos);
    QProcess read;
    read.start("pdftotext", {"-layout", At("units.pdf"), "-"});
    ASSERT_TRUE(read.waitForFinished());
    const QString paper = QString::fromUtf8(read.readAllStandardOutput());
    EXPECT_TRUE(paper.contains(units[0].toObject()["unit"].toString())) << FromQt(paper);
  }
}

TEST_F(Screenless, EachWritesOneFileAGood) {
  ASSERT_EQ(Run({"--each", "good", "--among", "1,2,3", "--text", At("card {code}.txt")}), 0)
      << FromQt(errors_);
  EXPECT_EQ(QDir(folder_.path()).entryList({"card *.txt"}).size(), 3);
  EXPECT_EQ(Run({"--each", "good", "--among", "1,2", "--text", At("same.txt")}), 2);
  EXPECT_EQ(Run({"--each", "good", "--among", "987654", "--text", At("{code}.txt")}), 1);
  EXPECT_EQ(Run({"--each", "group", "--text", At("{code}.txt")}), 2);
}

TEST_F(Screenless, WhatIsWrongInTheCommandIsUsageAndWritesNothing) {
  const QString text = At("card.txt");
  const QList<QStringList> wrong{
      {"--from", "1402/13/01", "--text", text},
      {"--from", "1402/02/01", "--to", "1402/01/01", "--text", text},
      {"--report", "nothing", "--text", text},
      {"--tab", "short", "--text", text},
      {"--report", "turnover-list", "--tab", "nothing", "--text", text},
      {"--report", "turnover-list", "--stock", "x..y", "--text", text},
      {"--report", "turnover-list", "--code", "1..5", "--stock", "1..5", "--text", text},
      {"--report", "turnover-list", "--exclude", "store", "--text", text},
      {"--report", "turnover-money", "--price-basis", "free", "--text", text},
      {"--good", "12x", "--text", text},
      {"--good", "1; drop table Kardex", "--text", text},
      {"--period", "some-day", "--text", text},
      {"--period", "today", "--from", "1402/01/01", "--text", text},
      {"--text", At("{nothing}.txt")},
      {"--nothing"},
      {},
  };
  for (const QStringList& arguments : wrong) {
    EXPECT_EQ(Run(arguments), 2) << FromQt(arguments.join(' '));
    EXPECT_FALSE(errors_.isEmpty()) << FromQt(arguments.join(' '));
  }
  EXPECT_FALSE(QFile::exists(text));
}

TEST_F(Screenless, WhatTheCompanyAnswersIsAnErrorWithCodeOne) {
  const QString text = At("card.txt");
  EXPECT_EQ(Run({"--good", "987654", "--text", text}), 1);
  EXPECT_TRUE(errors_.contains("--good")) << FromQt(errors_);
  EXPECT_EQ(Run({"--store", "77", "--text", text}), 1);
  EXPECT_EQ(Run({"--report", "turnover-list", "--group", "987654", "--text", text}), 1);
  EXPECT_EQ(Run({"--report", "turnover-list", "--tags", "987654", "--text", text}), 1);
  EXPECT_EQ(Run({"--module", "missing.so", "--text", text}), 1);
  EXPECT_EQ(Run({"--text", At("no/such/folder/card.txt")}), 1);
  EXPECT_FALSE(errors_.isEmpty());
  // Nobody listens on port 1.
  const QStringList nowhere{"--server", "127.0.0.1:1/Sherkat", "--user", "admin", "--text", text};
  EXPECT_EQ(RunBare(nowhere), 1);
  EXPECT_TRUE(errors_.contains("سرور")) << FromQt(errors_);
  EXPECT_EQ(RunBare(nowhere + QStringList{"--company", "shop.goods"}), 2);
  EXPECT_FALSE(QFile::exists(text));
}

TEST_F(Screenless, TheCompanyItselfIsNeverWrittenOver) {
  QFile::copy(ToQt(SmallCompany()), At("own.goods"));
  const std::string before = Written(Path("own.goods"));
  ASSERT_TRUE(QFile::link(At("own.goods"), At("link")));
  ASSERT_EQ(::link(Path("own.goods").c_str(), Path("same").c_str()), 0);
  // Each name once with each of two spellings of the company, each time in another format.
  constexpr const char* kFormats[] = {"--pdf", "--xlsx", "--csv", "--json", "--text"};
  std::size_t next = 0;
  for (const QString& company : {At("own.goods"), "file:" + At("own.goods")}) {
    for (const char* target : {"own.goods", "link", "same", "own.goods-wal", "own.goods-journal"}) {
      const char* format = kFormats[next++ % std::size(kFormats)];
      EXPECT_EQ(RunBare({"--company", company, "--user", "admin", "--good", "12", format, At(target)}), 1)
          << format << " " << target;
      EXPECT_TRUE(errors_.contains("این فایل از آن شرکت است")) << FromQt(errors_);
    }
    ++next;
  }
  EXPECT_EQ(RunBare({"--company", At("own.goods"), "--user", "admin", "--statement-log", At("own.goods"),
                     "--text", At("a.txt")}),
            1);
  EXPECT_EQ(Written(Path("own.goods")), before);
  EXPECT_EQ(QDir(folder_.path()).entryList({"own*", "link", "same"}),
            (QStringList{"link", "own.goods", "same"}));
}

TEST_F(Screenless, APipeAFolderAndAFolderThatIsNotThereAreRefused) {
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  ASSERT_TRUE(QDir(folder_.path()).mkdir("folder"));
  for (const char* target : {"pipe", "folder", "missing/file"}) {
    EXPECT_EQ(Run({"--good", "12", "--csv", At("first.csv"), "--text", At(target)}), 1) << target;
    EXPECT_TRUE(errors_.contains(At(target))) << FromQt(errors_);
    // What was written before stands, whole.
    EXPECT_TRUE(Written(Path("first.csv")).ends_with("\r\n"));
  }
  EXPECT_TRUE(QDir(At("folder")).isEmpty());
}

TEST_F(Screenless, RightsHoldAsOnTheDesktop) {
  const QString text = At("list.txt");
  EXPECT_EQ(Run({"--text", text}, "guest"), 4);
  EXPECT_TRUE(errors_.contains("مجوز")) << FromQt(errors_);
  EXPECT_EQ(Run({"--text", text}, "nobody"), 4);
  EXPECT_FALSE(QFile::exists(text));
  EXPECT_EQ(RunBare({"--company", ToQt(SmallCompany()), "--text", text}), 2);
  // The storekeeper's list has no amounts; the list in money is not for him.
  EXPECT_EQ(Run({"--report", "turnover-list", "--json", At("a.json")}, "anbar"), 0) << FromQt(errors_);
  EXPECT_EQ(Run({"--report", "turnover-money", "--json", At("b.json")}, "anbar"), 4);
}

// What is money in the windows is in no file, and no question asks for it.
TEST_F(Screenless, AUserWithoutPricesGetsNoneInAnyFormatAndIsRefusedToAskForThem) {
  const QStringList written{"--pdf",     At("a.pdf"), "--text",     At("a.txt"), "--csv",
                            At("a.csv"), "--json",    At("a.json"), "--xlsx",    At("a.xlsx")};
  for (const char* report : {"stock-card", "turnover-list", "row-search", "store-stock"}) {
    ASSERT_EQ(Run(QStringList{"--report", report} + written, "anbar"), 0) << report << FromQt(errors_);
    QByteArray files =
        QByteArray::fromStdString(Written(Path("a.txt")) + Written(Path("a.csv")) + Written(Path("a.json")));
    QProcess reader;
    reader.start("pdftotext", {At("a.pdf"), "-"});
    ASSERT_TRUE(reader.waitForFinished());
    files += reader.readAllStandardOutput();
    reader.start("unzip", {"-p", At("a.xlsx"), "xl/worksheets/sheet1.xml"});
    ASSERT_TRUE(reader.waitForFinished());
    files += reader.readAllStandardOutput();
    EXPECT_TRUE(files.contains("</worksheet>"));
    for (const char* money : {"مبلغ", "قیمت", "ارزش", "فی وارده"})
      EXPECT_FALSE(files.contains(money)) << report << money;
  }
  const QString csv = At("no.csv");
  const QList<QStringList> asking{
      {"--report", "stock-card", "--columns", "Date,Miangin"},
      {"--report", "stock-card", "--sort", "Miangin"},
      {"--report", "row-search", "--price-in", "1.."},
      {"--report", "store-stock", "--price-basis", "last-purchase"},
  };
  for (const QStringList& arguments : asking) {
    EXPECT_EQ(Run(arguments + QStringList{"--csv", csv}, "anbar"), 4) << FromQt(arguments.join(' '));
    EXPECT_TRUE(errors_.contains("قیمت")) << FromQt(arguments.join(' ')) << FromQt(errors_);
    EXPECT_EQ(Run(arguments + QStringList{"--csv", At("yes.csv")}), 0) << FromQt(errors_);
  }
  EXPECT_FALSE(QFile::exists(csv));
}

TEST_F(Screenless, APasswordComesFromAFileOrTheEnvironment) {
  WriteWholeFile(Path("password"), "admin\nsecond line\n");
  const QString company = ToQt(SmallCompany());
  environment_.remove("GOODS_PASSWORD");
  EXPECT_EQ(RunBare({"--company", company, "--user", "admin", "--text", At("a.txt")}), 2);
  EXPECT_EQ(RunBare({"--company", company, "--user", "admin", "--password-file", At("password"), "--text",
                     At("a.txt")}),
            0)
      << FromQt(errors_);
  WriteWholeFile(Path("password"), "wrong");
  EXPECT_EQ(RunBare({"--company", company, "--user", "admin", "--password-file", At("password"), "--text",
                     At("b.txt")}),
            4);
  EXPECT_FALSE(QFile::exists(At("b.txt")));
}

TEST_F(Screenless, RowsThatAreFoundEndWithThreeForAMonitor) {
  EXPECT_EQ(Run({"--report", "turnover-list", "--fail-if-rows"}), 3) << FromQt(errors_);
  EXPECT_EQ(Run({"--report", "turnover-list", "--name", "هیچ کالایی چنین نام ندارد", "--fail-if-rows",
                 "--skip-empty", "--text", At("none.txt")}),
            0)
      << FromQt(errors_);
  EXPECT_FALSE(QFile::exists(At("none.txt")));
}

// By a reader of another make, which takes the first sheet's numbers as they stand in the CSV.
TEST_F(Screenless, ASpreadsheetIsReadBackWithItsNumbers) {
  ASSERT_EQ(Run({"--good", "12", "--columns", "Date,Tedad_Varde,Bagh", "--xlsx", At("card.xlsx"), "--csv",
                 At("card.csv"), "--no-csv-mark"}),
            0)
      << FromQt(errors_);
  const Workbook book(Path("card.xlsx"));
  ASSERT_EQ(book.Sheets().size(), 1U);
  std::vector<std::string> lines;
  const auto rows = book.Open(0);
  std::vector<std::string_view> fields;
  while (rows->Next(fields)) {
    std::string line;
    for (const std::string_view field : fields) line += (line.empty() ? "" : ",") + std::string(field);
    lines.push_back(line);
  }
  const QStringList csv = ToQt(Written(Path("card.csv"))).split("\r\n", Qt::SkipEmptyParts);
  ASSERT_GT(csv.size(), 10);
  for (const QString& line : csv.mid(1)) {
    EXPECT_NE(std::find(lines.begin(), lines.end(), FromQt(line)), lines.end())
        << FromQt(line) << " is not there; the first line is " << lines.front();
  }
}

TEST_F(Screenless, AListGoesToAPipeByAHyphen) {
  for (const char* format : {"--csv", "--json", "--text"}) {
    // Without the mark, which is lost where the output becomes a text.
    ASSERT_EQ(Run({"--good", "12", "--no-csv-mark", format, At("card"), format, "-"}), 0) << FromQt(errors_);
    EXPECT_EQ(FromQt(output_), Written(Path("card"))) << format;
  }
  QProcess sheet;
  sheet.setProcessEnvironment(environment_);
  sheet.setStandardOutputFile(At("piped.xlsx"));
  sheet.start(GOODS_REPORT_PROGRAM,
              {"--company", ToQt(SmallCompany()), "--user", "admin", "--good", "12", "--xlsx", "-"});
  ASSERT_TRUE(sheet.waitForFinished(120'000));
  ASSERT_EQ(Run({"--good", "12", "--xlsx", At("card.xlsx")}), 0) << FromQt(errors_);
  EXPECT_EQ(Written(Path("piped.xlsx")), Written(Path("card.xlsx")));
  EXPECT_FALSE(QFile::exists(At("-")));
  EXPECT_EQ(Run({"--good", "12", "--csv", "-", "--json", "-"}), 2);
  QProcess full;
  full.setProcessEnvironment(environment_);
  full.setStandardOutputFile("/dev/full");
  full.start(GOODS_REPORT_PROGRAM, {"--company", ToQt(SmallCompany()), "--user", "admin", "--csv", "-"});
  ASSERT_TRUE(full.waitForFinished(120'000));
  EXPECT_EQ(full.exitCode(), 1);
  WriteWholeFile(Path("jobs.toml"),
                 "company = \"" + SmallCompany() + "\"\nuser = \"admin\"\n[a]\ncsv = \"-\"\n");
  EXPECT_EQ(RunBare({"run", At("jobs.toml")}), 2);
  EXPECT_TRUE(output_.isEmpty()) << FromQt(output_);
}

TEST_F(Screenless, AJobThatFailsDoesNotStopTheOthers) {
  WriteWholeFile(Path("jobs.toml"), "company = \"" + SmallCompany() +
                                        "\"\nuser = \"admin\"\n"
                                        "[first]\nreport = \"turnover-list\"\ntext = \"" +
                                        Path("first.txt") +
                                        "\"\n[mistyped]\nreport = \"turnover-list\"\nnothing = "
                                        "1\n[broken]\nreport = \"turnover-list\"\ngroup = 987654\ntext = \"" +
                                        Path("broken.txt") +
                                        "\"\n[last]\nreport = \"stock-card\"\ncsv = [\"" +
                                        Path("last {date}.csv") + "\", \"" + Path("again.csv") + "\"]\n");
  EXPECT_EQ(RunBare({"run", At("jobs.toml")}), 2);  // the first of the gravest
  EXPECT_TRUE(QFile::exists(At("first.txt")));
  EXPECT_FALSE(QFile::exists(At("broken.txt")));
  EXPECT_TRUE(QFile::exists(At("again.csv")));
  EXPECT_EQ(QDir(folder_.path()).entryList({"last *-*-*.csv"}).size(), 1);
  EXPECT_EQ(output_.count('\n'), 2) << FromQt(output_);
  EXPECT_TRUE(errors_.startsWith("mistyped: ")) << FromQt(errors_);
  EXPECT_TRUE(errors_.contains("\nbroken: ")) << FromQt(errors_);
  EXPECT_TRUE(output_.contains("first: ")) << FromQt(output_);
  WriteWholeFile(Path("wrong.toml"), "[a]\nnothing = 1\n");
  EXPECT_EQ(RunBare({"run", At("wrong.toml")}), 2);
  WriteWholeFile(Path("empty.toml"), "user = \"admin\"\n");
  EXPECT_EQ(RunBare({"run", At("empty.toml")}), 2);
}

}  // namespace
}  // namespace goods
