// The files that a table is written to: what stands in each format.
#include "desktop/print/export.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <algorithm>
#include <cstring>

#include <gtest/gtest.h>

#include "desktop/print/page_layout.h"
#include "desktop/print/writers.h"
#include "desktop/print/xlsx_parts.h"
#include "desktop/print/xlsx_styles.h"
#include "desktop/views/shown_text.h"
#include "tests/desktop/views/export_kit.h"
#include "tests/desktop/views/kit.h"

namespace goods::testing {
namespace {

class Export : public ::testing::Test {
 protected:
  std::string Path(const char* name) const { return folder.filePath(name).toStdString(); }
  QByteArray Written(FileFormat format, const IReportTable& table, const WritingOptions& options = {}) {
    PrintJob job;
    job.title = "موجودی کالا";
    job.lines = {"انبار: 3", "از تاریخ 1403/01/01"};
    job.table = &table;
    outcome = WriteReport(job, format, Path("file"), options);
    return Contents(Path("file"));
  }
  static std::ptrdiff_t Totals(const IReportTable& table) {
    const auto& columns = table.Columns();
    return std::count_if(columns.begin(), columns.end(),
                         [](const ReportColumn& column) { return column.total != TotalKind::None; });
  }
  // One part of the spreadsheet that was written last.
  QByteArray Part(const char* name) const {
    QProcess unzip;
    unzip.start("unzip", {"-p", ToQt(Path("file")), name});
    EXPECT_TRUE(unzip.waitForFinished());
    return unzip.readAllStandardOutput();
  }

  QTemporaryDir folder;
  ExportOutcome outcome;
};

// code, name, date, quantity (with a total), swatch
MadeTable Goods() {
  MadeTable table;
  table.Add("Code", "کد", CellKind::Number, {Value(12), Value(7), Value(-3)});
  table.Add("Name", "نام &کالا", CellKind::Text, {Value("پیچ, \"ریز\""), Value("=1+1"), Value("خط\nدوم")});
  table.Add("Date", "تاریخ", CellKind::Date, {Value("1403/01/01"), Value("1402/12/29"), Value("")});
  table.AddNumber("In", "وارده|مقدار", "#,0.##;#,0.##-;0",
                  {Value(*Decimal::Parse("18660000.5")), Value(*Decimal::Parse("-12")), Value()});
  table.AddNumber("Cost", "وارده|مبلغ", "#,0.##;#,0.##-;0", {Value(5), Value(0), Value(7)});
  table.Add("t1", "", CellKind::Swatch, {Value("#FF8000"), Value(), Value("$000000FF")});
  table.keys = 2;
  return table;
}

TEST_F(Export, CsvHasPlainNumbersAndNoFormulas) {
  EXPECT_EQ(Written(FileFormat::Csv, Goods()).toStdString(),
            "\xEF\xBB\xBF"
            "کد,نام کالا,تاریخ,وارده / مقدار,وارده / مبلغ,برچسب 1\r\n"
            "12,\"پیچ, \"\"ریز\"\"\",1403/01/01,18660000.5,5,#FF8000\r\n"
            "7,'=1+1,1402/12/29,-12,0,\r\n"
            "-3,\"خط\nدوم\",,,7,#FF0000\r\n");
}

TEST_F(Export, CsvAsShownWithoutMarkAndWithIsoDates) {
  WritingOptions options;
  options.csvShown = true;
  options.csvMark = false;
  options.isoDates = true;
  const QByteArray csv = Written(FileFormat::Csv, Goods(), options);
  EXPECT_TRUE(csv.startsWith("کد,"));
  EXPECT_TRUE(csv.contains(",2024-03-20,\"18,660,000.5\",5,#FF8000\r\n")) << csv.toStdString();
  EXPECT_TRUE(csv.contains(",2024-03-19,12-,0,\r\n"));
}

TEST_F(Export, EveryBeginningOfAFormulaIsEscaped) {
  MadeTable table;
  table.Add("T", "T", CellKind::Text,
            {Value("=A1"), Value("+A1"), Value("-A1"), Value("@A1"), Value("\tA1"), Value("\rA1"),
             Value("-12.5"), Value("+98"), Value("A=1")});
  const QByteArray csv = Written(FileFormat::Csv, table);
  EXPECT_EQ(csv.toStdString(),
            "\xEF\xBB\xBFT\r\n'=A1\r\n'+A1\r\n'-A1\r\n'@A1\r\n'\tA1\r\n\"'\rA1\"\r\n-12.5\r\n+98\r\nA=1\r\n");
}

TEST_F(Export, JsonIsTypedAndCarriesTitleAndCriteria) {
  const QByteArray json = Written(FileFormat::Json, Goods());
  QJsonParseError error{};
  const QJsonObject object = QJsonDocument::fromJson(json, &error).object();
  ASSERT_EQ(error.error, QJsonParseError::NoError) << json.toStdString();
  EXPECT_EQ(object["title"].toString(), "موجودی کالا");
  EXPECT_EQ(object["criteria"].toArray().size(), 2);
  const QJsonArray columns = object["columns"].toArray();
  ASSERT_EQ(columns.size(), 6);
  EXPECT_EQ(columns[3].toObject()["group"].toString(), "وارده");
  EXPECT_EQ(columns[3].toObject()["caption"].toString(), "مقدار");
  EXPECT_EQ(columns[2].toObject()["kind"].toString(), "date");
  EXPECT_EQ(columns[5].toObject()["kind"].toString(), "color");
  const QJsonArray rows = object["rows"].toArray();
  ASSERT_EQ(rows.size(), 3);
  EXPECT_EQ(rows[0].toArray()[0].toInt(), 12);
  EXPECT_EQ(rows[0].toArray()[3].toDouble(), 18660000.5);
  EXPECT_EQ(rows[1].toArray()[1].toString(), "=1+1");
  EXPECT_TRUE(rows[2].toArray()[3].isNull());
  EXPECT_EQ(object["totals"].toArray()[4].toInt(), 12);
  // All digits of a number that no double holds.
  MadeTable large;
  large.Add("N", "N", CellKind::Number, {Value(*Decimal::Parse("12345678901234567.123456789"))});
  EXPECT_TRUE(Written(FileFormat::Json, large).contains("[12345678901234567.123456789]"));
}

TEST_F(Export, JsonStaysJsonWhateverTheTextsHold) {
  MadeTable table;
  table.Add("T", "T", CellKind::Text, {Value(std::string("a\"\\\n\x01\xFF\xD8z\0k", 10))});
  QJsonParseError error{};
  const auto document = QJsonDocument::fromJson(Written(FileFormat::Json, table), &error);
  ASSERT_EQ(error.error, QJsonParseError::NoError);
  const QString text = document.object()["rows"].toArray()[0].toArray()[0].toString();
  EXPECT_EQ(text, QString::fromUtf8("a\"\\\n\x01\xEF\xBF\xBD\xEF\xBF\xBDz") + QChar(0) + "k");
  // No rows at all.
  MadeTable empty;
  empty.Add("T", "T", CellKind::Text, {});
  QJsonDocument::fromJson(Written(FileFormat::Json, empty), &error);
  EXPECT_EQ(error.error, QJsonParseError::NoError);
}

TEST_F(Export, TextHasColumnsOfCharactersAndTheTotals) {
  const QByteArray text = Written(FileFormat::Text, Goods());
  EXPECT_TRUE(text.startsWith("موجودی کالا\nانبار: 3\nاز تاریخ 1403/01/01\n\n"));
  EXPECT_TRUE(text.contains("18,660,000.5"));
  EXPECT_TRUE(text.contains("18,659,988.5"));
}

TEST_F(Export, ASpreadsheetHasTheTableAsATable) {
  Written(FileFormat::Xlsx, Goods());
  const QByteArray sheet = Part("xl/worksheets/sheet1.xml");
  EXPECT_TRUE(Part("xl/workbook.xml").contains("name=\"موجودی کالا\""));
  EXPECT_TRUE(sheet.contains("rightToLeft=\"1\""));
  // Title, two criteria, a blank line, two of captions: the rows begin on line 7; code and name stay in
  // sight.
  EXPECT_TRUE(sheet.contains("xSplit=\"2\" ySplit=\"6\" topLeftCell=\"C7\"")) << sheet.toStdString();
  EXPECT_TRUE(sheet.contains("<v>18660000.5</v>"));
  EXPECT_TRUE(sheet.contains("<v>-12</v>"));
  EXPECT_TRUE(sheet.contains("=1+1</t>"));
  EXPECT_FALSE(sheet.contains("<f>1+1</f>"));
  EXPECT_TRUE(sheet.contains("<mergeCell ref=\"D5:E5\"/>"));
  EXPECT_TRUE(sheet.contains("<mergeCell ref=\"A5:A6\"/>"));
  EXPECT_TRUE(sheet.contains("<autoFilter ref=\"A6:F9\"/>"));
  EXPECT_TRUE(sheet.contains("orientation=\"landscape\" fitToHeight=\"0\"/>"));
  EXPECT_TRUE(Part("xl/workbook.xml").contains("localSheetId=\"0\">'موجودی کالا'!$5:$6</definedName>"));
  EXPECT_TRUE(sheet.contains("<f>SUBTOTAL(9,D7:D9)</f><v>18659988.5</v>"));
  EXPECT_TRUE(sheet.contains("<f>SUBTOTAL(9,E7:E9)</f><v>12</v>"));
  EXPECT_TRUE(sheet.contains("برچسب 1"));
  const QByteArray styles = Part("xl/styles.xml");
  EXPECT_TRUE(styles.contains("#,##0;#,##0&quot;-&quot;;0"));
  EXPECT_TRUE(styles.contains("#,##0.0#;#,##0.0#&quot;-&quot;;0"));
  EXPECT_TRUE(styles.contains("FFFF8000"));
}

// Totals by unit of the quantity (in the fourth column); one beyond the range of numbers.
MadeTable GoodsByUnit() {
  MadeTable table = Goods();
  table.units[3] = {{"کیلوگرم", Value(*Decimal::Parse("18660000.5")), "18,660,000.5"},
                    {"عدد", Value(-12), "12-"},
                    {"متر", Value(), "بیش از اندازه"}};
  return table;
}

TEST_F(Export, JsonTellsTotalsByUnitInAListOfTheirOwn) {
  const QJsonObject object = QJsonDocument::fromJson(Written(FileFormat::Json, GoodsByUnit())).object();
  EXPECT_EQ(object["rows"].toArray().size(), 3);
  EXPECT_EQ(object["totals"].toArray().size(), 6);
  const QJsonArray units = object["units"].toArray();
  ASSERT_EQ(units.size(), 3);
  EXPECT_EQ(units[0].toObject()["unit"].toString(), "کیلوگرم");
  EXPECT_EQ(units[0].toObject()["totals"].toArray()[3].toDouble(), 18660000.5);
  EXPECT_EQ(units[1].toObject()["totals"].toArray().size(), 6);
  EXPECT_TRUE(units[1].toObject()["totals"].toArray()[4].isNull());
  EXPECT_TRUE(units[2].toObject()["totals"].toArray()[3].isNull());
  EXPECT_FALSE(QJsonDocument::fromJson(Written(FileFormat::Json, Goods())).object().contains("units"));
}

TEST_F(Export, CsvHasNoTotalsByUnitEither) {
  EXPECT_EQ(Written(FileFormat::Csv, GoodsByUnit()), Written(FileFormat::Csv, Goods()));
}

TEST_F(Export, TextHasALineForEachUnitUnderItsTotals) {
  const QList<QByteArray> lines = Written(FileFormat::Text, GoodsByUnit()).trimmed().split('\n');
  ASSERT_GT(lines.size(), 4);
  EXPECT_TRUE(lines[lines.size() - 4].contains("18,659,988.5"));
  EXPECT_TRUE(lines[lines.size() - 3].startsWith("جمع (کیلوگرم)"));
  EXPECT_TRUE(lines[lines.size() - 3].contains("18,660,000.5"));
  EXPECT_TRUE(lines[lines.size() - 2].startsWith("جمع (عدد)"));
  EXPECT_TRUE(lines[lines.size() - 1].contains("بیش از اندازه"));
  for (const QByteArray& line : lines.mid(lines.size() - 4))
    EXPECT_EQ(line.count('|'), 5) << line.toStdString();
}

TEST_F(Export, ASpreadsheetHasARowForEachUnitUnderItsTotals) {
  Written(FileFormat::Xlsx, GoodsByUnit());
  const QByteArray sheet = Part("xl/worksheets/sheet1.xml");
  EXPECT_TRUE(sheet.contains("<autoFilter ref=\"A6:F9\"/>")) << "the rows alone are filtered";
  EXPECT_TRUE(sheet.contains("<f>SUBTOTAL(9,D7:D9)</f><v>18659988.5</v>"));
  QXmlStreamReader xml(sheet);
  QMap<QString, QString> cells;
  QString cell;
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isStartElement() && xml.name() == u"c") cell = xml.attributes().value("r").toString();
    if (xml.isCharacters() && !cell.isEmpty()) cells[cell] += xml.text();
  }
  EXPECT_FALSE(xml.hasError());
  EXPECT_EQ(cells["A11"], "جمع (کیلوگرم)");
  EXPECT_EQ(cells["D11"], "18660000.5");
  EXPECT_EQ(cells["A12"], "جمع (عدد)");
  EXPECT_EQ(cells["D12"], "-12");
  EXPECT_EQ(cells["D13"], "بیش از اندازه");
  EXPECT_FALSE(cells.contains("E11"));
}

TEST_F(Export, ColumnsOfMarksInASpreadsheetHaveRoomForTheTitleThatTheyGetThere) {
  MadeTable table;
  table.Add("Code", "کد", CellKind::Number, {Value(12)});
  table.SetWidth(22);
  table.Add("t1", "", CellKind::Swatch, {Value("#FF8000")});
  table.SetWidth(22);
  Written(FileFormat::Xlsx, table);
  const QString sheet = QString::fromUtf8(Part("xl/worksheets/sheet1.xml"));
  const auto characters = [&](int column) {
    const QString begin = QString("<col min=\"%1\" max=\"%1\" width=\"").arg(column);
    return sheet.section(begin, 1).section('"', 0, 0).toDouble();
  };
  EXPECT_LT(characters(1), 4);
  EXPECT_GE(characters(2), QString("برچسب 1").size());
  EXPECT_FALSE(sheet.contains("customHeight")) << "the title stands on one line";
}

TEST_F(Export, ASpreadsheetsFormatsShowWholeNumbersWithoutAPoint) {
  EXPECT_EQ(SheetFormat("#0.####;#0.####-;0", true), "0;0\"-\";0");
  EXPECT_EQ(SheetFormat("#0.####;#0.####-;0", false), "0.0###;0.0###\"-\";0");
  EXPECT_EQ(SheetFormat("#,0.##", true), "#,##0");
  EXPECT_EQ(SheetFormat("0.00", true), "0.00");
  EXPECT_EQ(SheetFormat("#,##0.", false), "#,##0");
  EXPECT_EQ(SheetFormat("x0;-", true), "\"x\"0;\"-\"");
}

TEST_F(Export, ASpreadsheetHoldsAnyTextAndEveryDigit) {
  MadeTable table;
  table.Add("T", "<b>\"a\" && 'b'</b>", CellKind::Text,
            {Value("<&>\""), Value(" دو  فاصله "), Value(std::string("a\0b\x1F\rc", 6)),
             Value("_x000D_ و _x"), Value("\xEF\xBF\xBF\xEF\xBB\xBFx\xFF")});
  table.AddNumber("N", "عدد", "#,0.##",
                  {Value(*Decimal::Parse("12345678901234567.123456789")),
                   Value(*Decimal::Parse("-0.000000001")), Value(0), Value(), Value(7)});
  Written(FileFormat::Xlsx, table);
  const QByteArray sheet = Part("xl/worksheets/sheet1.xml");
  EXPECT_TRUE(sheet.contains("<t>&lt;b&gt;&quot;a&quot; &amp; 'b'&lt;/b&gt;</t>")) << sheet.toStdString();
  EXPECT_TRUE(sheet.contains("<t>&lt;&amp;&gt;&quot;</t>"));
  EXPECT_TRUE(sheet.contains("<t xml:space=\"preserve\"> دو  فاصله </t>"));
  EXPECT_TRUE(sheet.contains("<t>a_x0000_b_x001F__x000D_c</t>"));
  EXPECT_TRUE(sheet.contains("<t>_x005F_x000D_ و _x</t>"));
  EXPECT_TRUE(sheet.contains("<t>\xEF\xBF\xBD\xEF\xBB\xBFx\xEF\xBF\xBD</t>"));
  EXPECT_TRUE(sheet.contains("<v>12345678901234567.123456789</v>"));
  EXPECT_TRUE(sheet.contains("<v>-0.000000001</v>"));
  // The third line has an empty cell.
  EXPECT_EQ(sheet.count("<v>"), 4 + 1);
  QXmlStreamReader reader(sheet);
  while (!reader.atEnd()) reader.readNext();
  EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
}

TEST_F(Export, AnEmptyTableAndOneWithoutColumnsAreWorkbooksToo) {
  MadeTable table;
  Written(FileFormat::Xlsx, table);
  EXPECT_TRUE(Part("xl/worksheets/sheet1.xml").contains("موجودی کالا</t>"));
  EXPECT_FALSE(Part("xl/worksheets/sheet1.xml").contains("autoFilter"));
  table.AddNumber("N", "عدد", "#,0", {});
  Written(FileFormat::Xlsx, table);
  EXPECT_TRUE(Part("xl/worksheets/sheet1.xml").contains("</sheetData><pageSetup"));
  EXPECT_EQ(outcome.sheets, 1U);
}

TEST_F(Export, ColumnsBehindTheAlphabetHaveTwoLetters) {
  EXPECT_EQ(ColumnLetters(0), "A");
  EXPECT_EQ(ColumnLetters(25), "Z");
  EXPECT_EQ(ColumnLetters(26), "AA");
  EXPECT_EQ(ColumnLetters(701), "ZZ");
  EXPECT_EQ(ColumnLetters(702), "AAA");
}

TEST_F(Export, DaysOfASpreadsheetCanBeCalculatedWith) {
  WritingOptions options;
  options.isoDates = true;
  Written(FileFormat::Xlsx, Goods(), options);
  EXPECT_TRUE(Part("xl/worksheets/sheet1.xml").contains("<v>45371</v>"));  // 2024-03-20
  EXPECT_TRUE(Part("xl/styles.xml").contains("yyyy-mm-dd"));
}

TEST_F(Export, MoreRowsThanASheetHoldsGoOnInTheNext) {
  MadeTable table;
  std::vector<Value> numbers;
  for (int i = 1; i <= 200; ++i) numbers.emplace_back(i);
  table.AddNumber("N", "عدد", "#,0", numbers);
  WritingOptions options;
  options.sheetRows = 100;
  Written(FileFormat::Xlsx, table, options);
  // Five lines of head and one kept for the totals leave 94 rows a sheet.
  EXPECT_EQ(outcome.sheets, 3U);
  EXPECT_TRUE(Part("xl/workbook.xml").contains("name=\"موجودی کالا (3)\""));
  EXPECT_EQ(Part("xl/worksheets/sheet1.xml").count("<v>"), 94);
  EXPECT_EQ(Part("xl/worksheets/sheet2.xml").count("<v>"), 94);
  const QByteArray last = Part("xl/worksheets/sheet3.xml");
  EXPECT_EQ(last.count("<v>"), 12 + 1);
  EXPECT_TRUE(
      last.contains("<f>SUBTOTAL(9,'موجودی کالا'!A6:A99)+SUBTOTAL(9,'موجودی کالا (2)'!A6:A99)+"
                    "SUBTOTAL(9,'موجودی کالا (3)'!A6:A17)</f><v>20100</v>"))
      << last.toStdString();
}

TEST_F(Export, ATextLongerThanACellIsCutAndCounted) {
  MadeTable table;
  std::string emoji;
  for (int i = 0; i < 20000; ++i) emoji += "\xF0\x9F\x94\xA9";
  table.Add("T", "T", CellKind::Text,
            {Value(std::string(32767, 'a')), Value(std::string(32768, 'b')), Value(emoji)});
  Written(FileFormat::Xlsx, table);
  EXPECT_EQ(outcome.cutTexts, 2U);
  EXPECT_TRUE(NoteOf(outcome).starts_with("2 "));
  const QByteArray sheet = Part("xl/worksheets/sheet1.xml");
  EXPECT_TRUE(sheet.contains(QByteArray(32767, 'a') + "</t>"));
  EXPECT_TRUE(sheet.contains(QByteArray(32766, 'b') + "…</t>"));
  EXPECT_EQ(sheet.count("\xF0\x9F\x94\xA9"), 16383);
  EXPECT_EQ(NoteOf({}), "");
}

TEST_F(Export, ASheetIsNamedAfterTheReportAsFarAsItMay) {
  PrintJob job;
  MadeTable table;
  table.Add("T", "T", CellKind::Text, {Value("x")});
  job.table = &table;
  const auto sheetOf = [&](const char* title) {
    job.title = title;
    WriteReport(job, FileFormat::Xlsx, Path("file"));
    const QString book = QString::fromUtf8(Part("xl/workbook.xml"));
    const auto from = book.indexOf("<sheet name=\"") + 13;
    return FromQt(book.mid(from, book.indexOf('"', from) - from));
  };
  EXPECT_EQ(sheetOf("'گزارش [کلی]: ورود/خروج'"), "گزارش  کلی   ورود خروج");
  // Cut behind a whole word, and not behind an open bracket.
  EXPECT_EQ(sheetOf("گزارش کلی ورود و خروج کالا ( خلاصه کاردکس )"), "گزارش کلی ورود و خروج کالا");
  EXPECT_EQ(sheetOf("1234567890123456789012345678901234567890"), "1234567890123456789012345678901");
  EXPECT_EQ(sheetOf("?"), "گزارش");
}

TEST_F(Export, APdfHasThePagesOfTheLayout) {
  TestHost host;
  TCard_FRM form(host);
  form.Fill(120);
  const auto table = form.Kardex_GRD.Table();
  PrintJob job;
  job.title = "کاردکس کالا";
  job.table = table.get();
  WritingOptions options;
  options.today = "1403/05/12";
  WriteReport(job, FileFormat::Pdf, Path("card.pdf"), options);
  const QByteArray pdf = Contents(Path("card.pdf"));
  ASSERT_TRUE(pdf.startsWith("%PDF"));
  EXPECT_EQ(static_cast<std::size_t>(pdf.count("/Type /Page\n")),
            PageLayout(job, "1403/05/12").Pages().size());
}

TEST_F(Export, TheTextOfAPdfIsFoundInLogicalOrder) {
  MadeTable table;
  table.Add("Name", "نام کالا", CellKind::Text, {Value("روغن آفتابگردان سرخ کردنی"), Value("چای کلاله")});
  table.AddNumber("N", "تعداد", "#,0", {Value(12), Value(7)});
  Written(FileFormat::Pdf, table);
  QProcess program;
  program.start("pdftotext", {ToQt(Path("file")), "-"});
  ASSERT_TRUE(program.waitForFinished());
  const QString text = QString::fromUtf8(program.readAllStandardOutput());
  for (const char* found : {"موجودی کالا", "روغن آفتابگردان سرخ کردنی", "چای کلاله", "نام کالا"}) {
    EXPECT_TRUE(text.contains(QString::fromUtf8(found))) << found << FromQt(text);
  }
  program.start("pdfinfo", {ToQt(Path("file"))});
  ASSERT_TRUE(program.waitForFinished());
  EXPECT_EQ(program.exitCode(), 0);
  EXPECT_TRUE(program.readAllStandardError().isEmpty());
}

TEST_F(Export, AColumnListIsAskedForOnceHoweverManyRowsThereAre) {
  TestHost host;
  TCard_FRM form(host);
  form.Fill(2000);
  const auto table = form.Kardex_GRD.Table();
  // The same list, not another one that is equal.
  EXPECT_EQ(&table->Columns(), &table->Columns());
  EXPECT_EQ(Written(FileFormat::Csv, *table).count("\r\n"), 2001);
}

// Cells, totals and captions of what a form declares as money, in every format.
TEST_F(Export, AUserWithoutPricesGetsNoAmountInAnyFormat) {
  for (const bool sees : {true, false}) {
    TestHost host;
    host.rights.seesPrices = sees;
    TCard_FRM form(host);
    form.Fill(3);
    form.Kardex_GRD.FindColumn("Mab_Bagh")->SetCaption("ارزش").SetMoney();
    const auto table = form.Kardex_GRD.Table();
    EXPECT_EQ(table->Columns().back().caption == "ارزش", sees);
    for (const FileFormat format : {FileFormat::Text, FileFormat::Csv, FileFormat::Json}) {
      EXPECT_EQ(Written(format, *table).contains("ارزش"), sees) << EndingOf(format);
    }
    Written(FileFormat::Xlsx, *table);
    EXPECT_EQ(Part("xl/worksheets/sheet1.xml").contains("ارزش"), sees);
    EXPECT_EQ(Part("xl/worksheets/sheet1.xml").count("<f>"), static_cast<int>(Totals(*table)));
    Written(FileFormat::Pdf, *table);
    QProcess program;
    program.start("pdftotext", {ToQt(Path("file")), "-"});
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(QString::fromUtf8(program.readAllStandardOutput()).contains("ارزش"), sees);
  }
}

TEST_F(Export, TheUserMayStopIt) {
  MadeTable table;
  table.Add("N", "N", CellKind::Number, std::vector<Value>(20000, Value(1)));
  WriteWholeFile(Path("file"), "old");
  for (const FileFormat format :
       {FileFormat::Text, FileFormat::Csv, FileFormat::Xlsx, FileFormat::Json, FileFormat::Pdf}) {
    WritingOptions options;
    options.progress = [](std::size_t row) { return row == 0; };
    EXPECT_THROW(Written(format, table, options), ExportStopped);
    EXPECT_EQ(Contents(Path("file")), "old");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
  }
}

}  // namespace
}  // namespace goods::testing
