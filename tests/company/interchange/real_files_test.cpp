// Files as other systems write them.
#include <xlsxwriter.h>
#include <zlib.h>

#include "company/interchange/csv_reader.h"
#include "company/interchange/inline_texts.h"
#include "company/interchange/workbook.h"
#include "host/core/text.h"
#include "interchange_fixture.h"

namespace goods {
namespace {

using Rows = std::vector<std::string>;

std::string Utf16(std::string_view text, bool little, bool mark) {
  std::string bytes = mark ? (little ? "\xff\xfe" : "\xfe\xff") : "";
  for (const char16_t unit : ToUtf16(text)) {
    const char low = static_cast<char>(unit & 0xff);
    const char high = static_cast<char>(unit >> 8);
    bytes += little ? low : high;
    bytes += little ? high : low;
  }
  return bytes;
}

// Letters that the tests use, and ASCII.
std::string Windows1256(std::string_view text) {
  const std::map<char16_t, char> letters = {{u'ف', '\xdd'}, {u'ر', '\xd1'}, {u'و', '\xe6'}, {u'ش', '\xd4'},
                                            {u'ک', '\x98'}, {u'د', '\xcf'}, {u'ن', '\xe4'}, {u'ا', '\xc7'},
                                            {u'م', '\xe3'}, {u'گ', '\x90'}, {u'ه', '\xe5'}, {u'پ', '\x81'},
                                            {u'ي', '\xed'}, {u'خ', '\xce'}, {u'ل', '\xe1'}, {u'ت', '\xca'},
                                            {u'ق', '\xde'}, {u'ب', '\xc8'}, {u'ح', '\xcd'}};
  std::string bytes;
  for (const char16_t unit : ToUtf16(text)) bytes += unit < 0x80 ? static_cast<char>(unit) : letters.at(unit);
  return bytes;
}

class RealFiles : public ::testing::Test {
 protected:
  RealFiles() {
    folder_["goods.csv"] = "code,name,group,unit\nG-1,یک,الف,عدد\nG-2,دو,الف,عدد\n";
    folder_["movements.csv"] =
        "date,good,store,type,quantity,price\n"
        "2024-07-22,G-1,S1,purchase,10,5\n"
        "2024-07-22,G-2,S1,purchase,4,7\n"
        "2024-07-23,G-1,S1,sale,-3,9\n";
  }

  ImportCounts Import(ImportOptions options = {}) {
    options.firstPassword = "a password";
    options.replace = true;
    return ImportCompany(company_.Path(), folder_.Write(), options);
  }
  Rows Ask(const std::string& sql) { return Dump(company_.Path(), sql); }
  Rows Problems(const ImportOptions& options = {}) { return ImportProblemsOf(folder_.Write(), options); }

  TestFolder folder_{"real"};
  TestFile company_{"real.company"};
};

TEST_F(RealFiles, CodesThatAreTextsGetNumbersAndStayAsAbbreviationsThatAreSearched) {
  folder_["goods.csv"] += "7,هفت,الف,عدد\n";
  const ImportCounts counts = Import();
  EXPECT_EQ(counts.goods, 3U);
  EXPECT_EQ(counts.stores, 1U);
  EXPECT_EQ(Ask("SELECT Code, AbbName FROM GoodInf ORDER BY Code"), (Rows{"7||", "8|G-1|", "9|G-2|"}));
  const std::unique_ptr<ICompany> company = OpenCompany(company_.Path());
  const std::vector<EntityRecord> found = company->SearchEntities(EntityKind::Good, "g-2", 10);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].code, 9);
  EXPECT_EQ(company->SearchEntities(EntityKind::Store, "S1", 10).size(), 1U);
}

TEST_F(RealFiles, AnAbbreviationBesideATextCodeIsKeptAndBothNameTheGood) {
  folder_["goods.csv"] = "code,name,group,unit,barcode\nG-1,یک,الف,عدد,6260001112223\nG-2,دو,الف,عدد,\n";
  folder_["movements.csv"] += "2024-07-23,6260001112223,S1,sale,-1,9\n";
  Import();
  EXPECT_EQ(Ask("SELECT AbbName, kala_index FROM GoodInf ORDER BY Code"),
            (Rows{"6260001112223|G-1|", "G-2||"}));
  EXPECT_EQ(Ask("SELECT count(*) FROM Kardex WHERE Kala = 1"), (Rows{"3|"}));
}

TEST_F(RealFiles, RowsWithoutDocumentNumbersAreDocumentsByDatePersonAndStore) {
  folder_["movements.csv"] =
      "date,good,store,type,quantity,price\n"
      "1403/01/01,G-1,1,purchase,10,5\n1403/01/01,G-2,1,purchase,10,5\n1403/01/01,G-2,2,purchase,10,5\n"
      "1403/01/02,G-1,1,transfer_out,-2,\n1403/01/02,G-1,2,transfer_in,2,\n1403/01/03,G-1,1,opening,1,5\n";
  Import();
  EXPECT_EQ(Ask("SELECT Kind, Code, Anbar, ToAnbar FROM Documents ORDER BY 1, 2"),
            (Rows{"3|1|1|0|", "3|2|2|0|", "7|1|1|2|"}));
  EXPECT_EQ(Differences(company_.Path()), "");
}

TEST_F(RealFiles, PersianHeadersNamesAndTypesAreKnown) {
  folder_.Remove("goods.csv");
  folder_.Remove("movements.csv");
  folder_["کالاها.csv"] = "کد كالا;نام کالا;گروه;واحد;بارکد\n1;قند;خوراکي;کیلو;626\n";
  folder_["گردش.csv"] =
      "تاریخ;کد کالا;انبار;نوع گردش;تعداد;قیمت واحد (ریال);شماره سند\n"
      "۱۴۰۳/۰۵/۰۱;۱;۱;خرید;۱۲٫۵;۱٬۲۰۰٬۰۰۰;۱\n"
      "۱۴۰۳/۰۵/۰۲;۱;۱;فروش;-۲;\"1,500,000\";۱\n"
      "۱۴۰۳/۰۵/۰۳;۱;۱;برگشت از فروش;۱;;۱\n";
  Import();
  EXPECT_EQ(Ask("SELECT Date, Type, dec_text(Tedad), dec_text(Fi) FROM Kardex ORDER BY Date"),
            (Rows{"1403/05/01|2|12.5|1200000|", "1403/05/02|1|-2|1500000|", "1403/05/03|4|1|1200000|"}));
}

TEST_F(RealFiles, IncomingAndOutgoingColumnsDirectionsAndUnsignedQuantitiesGiveTheSign) {
  const Rows wanted = {"2|10|", "1|-3|"};
  folder_["movements.csv"] =
      "تاریخ,کالا,انبار,نوع,وارده,صادره\n1403/01/01,G-1,1,خرید,10,\n1403/01/02,G-1,1,فروش,,3\n";
  Import();
  const std::string sql = "SELECT Type, dec_text(Tedad) FROM Kardex ORDER BY Date";
  EXPECT_EQ(Ask(sql), wanted);
  folder_["movements.csv"] =
      "date,good,store,type,quantity,direction\n1403/01/01,G-1,1,خرید,10,in\n1403/01/02,G-1,1,فروش,3,خروج\n";
  Import();
  EXPECT_EQ(Ask(sql), wanted);
  folder_["movements.csv"] =
      "date,good,store,type,quantity\n1403/01/01,G-1,1,خرید,10\n1403/01/02,G-1,1,فروش,3\n";
  const Rows problems = Problems();
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_NE(problems[0].find("--unsigned"), std::string::npos) << problems[0];
  ImportOptions options;
  options.unsignedQuantities = true;
  Import(options);
  EXPECT_EQ(Ask(sql), wanted);
}

TEST_F(RealFiles, AMapNamesFilesColumnsAndMovementTypes) {
  folder_.Remove("goods.csv");
  folder_.Remove("movements.csv");
  folder_["artikel.csv"] = "Nr,Name,Grp,Unit\nA,eins,g,pc\n";
  folder_["buch.csv"] =
      "Tag,Nr,Lager,Vorgang,Menge,Preis\n2024-07-22,A,L1,\"20, local\",5,3\n2024-07-23,A,L1,30,-1,4\n";
  const TestFile map("map.csv");
  WriteFile(map.Path(),
            "what,theirs,ours\nfile,artikel,goods\nfile,buch.csv,movements\ngoods,Nr,code\ngoods,Grp,group\n"
            "movements,Tag,date\nmovements,Nr,good\nmovements,Lager,store\nmovements,Vorgang,movement type\n"
            "movement type,\"20, local\",purchase\nmovement type,30,فروش\n");
  ImportOptions options;
  options.names.ReadFile(map.Path());
  options.names.AddColumn("movements.quantity=Menge");
  options.names.AddColumn("unit price=Preis");
  Import(options);
  EXPECT_EQ(Ask("SELECT Type, dec_text(Tedad), dec_text(Fi) FROM Kardex ORDER BY Date"),
            (Rows{"2|5|3|", "1|-1|4|"}));
  EXPECT_THROW(options.names.AddColumn("quantity"), CompanyError);
  WriteFile(map.Path(), "what,theirs,ours\nfile,artikel\n");
  EXPECT_THROW(options.names.ReadFile(map.Path()), CompanyError);
}

TEST_F(RealFiles, EveryEncodingAndSeparatorIsRecognised) {
  const std::string goods = "کد,نام,گروه,واحد\n1,گوشي پاک,خوراک,دانه\n";
  folder_["movements.csv"] = "date,good,store,type,quantity\n1403/01/01,1,1,purchase,1\n";
  const auto name = [&](const std::string& bytes) {
    folder_["goods.csv"] = bytes;
    Import();
    return Ask("SELECT Name FROM GoodInf")[0];
  };
  const std::string wanted = "گوشي پاک|";
  EXPECT_EQ(name(goods), wanted);
  EXPECT_EQ(name("\xef\xbb\xbf" + goods), wanted);
  EXPECT_EQ(name(Utf16(goods, true, true)), wanted);
  EXPECT_EQ(name(Utf16(goods, false, true)), wanted);
  EXPECT_EQ(name(Utf16(ReplaceAll(goods, ",", "\t"), true, false)), wanted);
  EXPECT_EQ(name(Windows1256(goods)), wanted);
  EXPECT_EQ(name(ReplaceAll(goods, ",", ";")), wanted);
  EXPECT_EQ(name(ReplaceAll(goods, ",", "\t")), wanted);
}

TEST_F(RealFiles, UnquotedThousandsSeparatorsAreNamed) {
  folder_["movements.csv"] =
      "date,good,store,type,quantity,price\n1403/01/01,G-1,1,purchase,10,1,250,000\n1403/01/"
      "01,G-1,1,purchase,1,5,x\n";
  const Rows problems = Problems();
  ASSERT_EQ(problems.size(), 2U);
  EXPECT_NE(problems[0].find("جداکننده هزارگان"), std::string::npos) << problems[0];
  EXPECT_NE(problems[0].find("250,000"), std::string::npos) << problems[0];
  EXPECT_EQ(problems[1], "movements.csv:3: شمار خانه ها 7 است و باید 6 باشد");
}

TEST_F(RealFiles, ProblemsAreWrittenAsCsvTheFirstHundredAndHowManyMore) {
  for (int i = 0; i < 130; ++i) folder_["movements.csv"] += "bad,G-1,S1,sale,-1,9\n";
  const TestFile list("problems.csv");
  try {
    Import();
    FAIL();
  } catch (const ImportRefused& refused) {
    WriteProblems(list.Path(), refused);
  }
  CsvReader reader(list.Path());
  std::vector<std::string_view> fields;
  Rows rows;
  while (reader.Next(fields))
    rows.push_back(std::string(fields[0]) + "|" + std::string(fields[1]) + "|" + std::string(fields[2]));
  ASSERT_EQ(rows.size(), 102U);
  EXPECT_EQ(rows[0], "file|line|reason");
  EXPECT_EQ(rows[1], "movements.csv|5|تاریخ «bad» درست نیست");
  EXPECT_EQ(rows[101], "||و 30 خطای دیگر");
}

TEST_F(RealFiles, ColoursMayBeGivenAsTheyAreAndGoodsGetTheirTags) {
  folder_["tags.csv"] = "code,name,color\n1,داغ,#FF8000\n2,سرد,#0000ff\n3,گرم,#FF8000\n";
  folder_["good_tags.csv"] = "good,tag\nG-2,3\nG-2,1\n";
  Import();
  EXPECT_EQ(Ask("SELECT t.Code, c.ColorText, c.\"H-img\" FROM TagS t JOIN colors c ON c.code = t.color_code "
                "ORDER BY 1"),
            (Rows{"1|$000080FF|#FF8000|", "2|$00ff0000|#0000ff|", "3|$000080FF|#FF8000|"}));
  EXPECT_EQ(Ask("SELECT Tags FROM GoodInf ORDER BY Code"), (Rows{"|", ",3,1,|"}));
}

TEST_F(RealFiles, WhatIsNamedAndNotThereIsRefusedInEveryFile) {
  folder_["tags.csv"] = "code,name,color\n1,داغ,9\n";
  folder_["good_tags.csv"] = "good,tag\nG-2,5\nG-9,5\n";
  folder_["combinations.csv"] = "code,good,value 1\n1,G-1,سبز\n";
  folder_["detail_movements.csv"] = "movement,combination,amount\n2,1,4\n1,8,1\n1,1,10\n1,1,10\n";
  folder_["documents.csv"] = "kind,number,remark\nsale,77,x\nnothing,1,y\n";
  EXPECT_EQ(Problems(),
            (Rows{"tags.csv:2: رنگ «9» تعریف نشده است", "good_tags.csv:2: برچسب «5» تعریف نشده است",
                  "good_tags.csv:3: کالا «G-9» تعریف نشده است", "good_tags.csv:3: برچسب «5» تعریف نشده است",
                  "detail_movements.csv:3: ترکیب جزییات «8» تعریف نشده است",
                  "documents.csv:3: نوع سند «nothing» شناخته نیست"}));
  folder_.Remove("tags.csv");
  folder_.Remove("good_tags.csv");
  folder_["detail_movements.csv"] = "movement,combination,amount\n2,1,4\n1,1,10\n1,1,10\n";
  folder_["documents.csv"] = "kind,number,remark\nsale,77,x\n";
  EXPECT_EQ(Problems(), (Rows{"documents.csv:2: سندی با این نوع و شماره نیست",
                              "detail_movements.csv:4: این ترکیب برای این گردش تکراری است",
                              "detail_movements.csv:2: کالای این ترکیب گردشی با این ترتیب ندارد"}));
}

TEST_F(RealFiles, TheSameOrderTwiceIsRefused) {
  folder_["movements.csv"] =
      "order,date,good,store,type,quantity\n2,1403/01/01,G-1,1,purchase,1\n1,1403/01/01,G-2,1,purchase,1\n"
      "2,1403/01/02,G-1,1,purchase,1\n";
  EXPECT_EQ(Problems(), (Rows{"movements.csv:0: ترتیب 2 بیش از یک بار آمده است"}));
}

// --- spreadsheets ---

// streamed: texts stand in their cells, else in a list of their own.
void WriteXlsx(const std::string& path,
               const std::map<std::string, std::vector<std::vector<std::string>>>& sheets,
               bool streamed = false) {
  lxw_workbook_options options{};
  options.constant_memory = streamed ? LXW_TRUE : LXW_FALSE;
  lxw_workbook* book = workbook_new_opt(path.c_str(), &options);
  for (const auto& [name, rows] : sheets) {
    lxw_worksheet* sheet = workbook_add_worksheet(book, name.c_str());
    for (std::size_t row = 0; row < rows.size(); ++row) {
      for (std::size_t column = 0; column < rows[row].size(); ++column) {
        const std::string& cell = rows[row][column];
        const auto r = static_cast<lxw_row_t>(row);
        const auto c = static_cast<lxw_col_t>(column);
        // "#" begins a number, "=" a formula with its result.
        if (cell.starts_with("#")) {
          worksheet_write_number(sheet, r, c, std::stod(cell.substr(1)), nullptr);
        } else if (cell.starts_with("=")) {
          worksheet_write_formula_num(sheet, r, c, "=1+1", nullptr, std::stod(cell.substr(1)));
        } else if (!cell.empty()) {
          worksheet_write_string(sheet, r, c, cell.c_str(), nullptr);
        }
      }
    }
  }
  workbook_close(book);
}

TEST_F(RealFiles, AWorkbookWithASheetForEachFileIsRead) {
  for (const bool streamed : {false, true}) {
    const TestFile book("book.xlsx");
    WriteXlsx(book.Path(),
              {{"goods",
                {{"کد", "نام", "گروه", "واحد"},
                 {"#1", "<یک> & \"inlineStr\"", "الف", "عدد"},
                 {"#2", " دو ", "الف", "عدد"}}},
               {"گردش",
                {{"تاریخ", "کالا", "انبار", "نوع", "مقدار", "قیمت"},
                 {"1403/01/01", "#1", "#1", "خرید", "#12.1", "#0.3"},
                 {},
                 {"#45496", "#2", "#1", "خرید", "=7", "#1250000"}}}},
              streamed);
    ImportOptions options;
    options.firstPassword = "a password";
    options.replace = true;
    ImportCompany(company_.Path(), book.Path(), options);
    EXPECT_EQ(Ask("SELECT Date, Kala, dec_text(Tedad), dec_text(Fi) FROM Kardex ORDER BY 2"),
              (Rows{"1403/01/01|1|12.1|0.3|", "1403/05/02|2|7|1250000|"}))
        << streamed;
    EXPECT_EQ(Ask("SELECT Name FROM GoodInf ORDER BY Code"), (Rows{"<یک> & \"inlineStr\"|", "دو|"}))
        << streamed;
  }
}

TEST_F(RealFiles, AFolderMayHoldAWorkbookInPlaceOfAFile) {
  const std::string folder = folder_.Write();
  std::filesystem::remove(folder + "/goods.csv");
  WriteXlsx(folder + "/goods.xlsx",
            {{"Sheet1",
              {{"code", "name", "group", "unit"}, {"G-1", "یک", "الف", "عدد"}, {"G-2", "", "الف", "عدد"}}}});
  ImportOptions options;
  EXPECT_EQ(ImportProblemsOf(folder, options),
            (Rows{"goods.xlsx:3: نام کالا خالی است", "movements.csv:3: کالا «G-2» تعریف نشده است"}));
}

void PutNumber(std::string& bytes, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xff);
}

// A zip file whose members are stored as they are.
std::string Zip(const std::vector<std::pair<std::string, std::string>>& members) {
  std::string bytes;
  std::string directory;
  for (const auto& [name, data] : members) {
    const auto offset = static_cast<std::uint32_t>(bytes.size());
    const auto sum = static_cast<std::uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(data.data()), static_cast<uInt>(data.size())));
    std::string common;
    PutNumber(common, 20, 2);
    PutNumber(common, 0, 2);
    PutNumber(common, 0, 2);
    PutNumber(common, 0x5a210000U, 4);
    PutNumber(common, sum, 4);
    PutNumber(common, static_cast<std::uint32_t>(data.size()), 4);
    PutNumber(common, static_cast<std::uint32_t>(data.size()), 4);
    PutNumber(common, static_cast<std::uint32_t>(name.size()), 2);
    PutNumber(common, 0, 2);
    bytes += "PK\x03\x04" + common + name + data;
    directory += "PK\x01\x02";
    PutNumber(directory, 20, 2);
    directory += common;
    PutNumber(directory, 0, 2);
    PutNumber(directory, 0, 2);
    PutNumber(directory, 0, 2);
    PutNumber(directory, 0, 4);
    PutNumber(directory, offset, 4);
    directory += name;
  }
  const auto begin = static_cast<std::uint32_t>(bytes.size());
  bytes += directory + "PK\x05\x06";
  PutNumber(bytes, 0, 4);
  PutNumber(bytes, static_cast<std::uint32_t>(members.size()), 2);
  PutNumber(bytes, static_cast<std::uint32_t>(members.size()), 2);
  PutNumber(bytes, static_cast<std::uint32_t>(directory.size()), 4);
  PutNumber(bytes, begin, 4);
  PutNumber(bytes, 0, 2);
  return bytes;
}

// Pieces of one text with their own letters, an empty one, how it is spoken, and a cell of another kind.
TEST_F(RealFiles, TextsInTheirCellsAreReadWhole) {
  const std::string head = "<worksheet><sheetData><row r=\"1\">";
  const std::string cells =
      "<c r=\"A1\" t=\"inlineStr\"><is><r><rPr/><t>یک</t></r><r><t xml:space=\"preserve\"> و دو</t></r>"
      "<rPh sb=\"0\" eb=\"1\"><t>spoken</t></rPh></is></c><c r=\"B1\" t='inlineStr'><is><t/></is></c>"
      "<c r=\"C1\" t=\"n\"><v>3</v></c><c r=\"D1\" s=\"1\" t=\"inlineStr\"/>";
  const std::string archive = Zip(
      {{"xl/worksheets/sheet1.xml", head + cells + "</row></sheetData></worksheet>"}, {"other.xml", cells}});
  EXPECT_EQ(WithReadableTexts(archive),
            Zip({{"xl/worksheets/sheet1.xml",
                  head + "<c r=\"A1\" t=\"str\"><f>0</f><v>یک و دو</v></c><c r=\"B1\" "
                         "t='str'><f>0</f><v></v></c><c r=\"C1\" t=\"n\"><v>3</v></c><c r=\"D1\" s=\"1\" "
                         "t=\"inlineStr\"/></row></sheetData></worksheet>"},
                 {"other.xml", cells}}));
  // What is no archive, or none of a workbook, stays as it is, wherever it ends.
  for (std::size_t length = 0; length < archive.size(); length += 7) {
    EXPECT_EQ(WithReadableTexts(archive.substr(0, length)), archive.substr(0, length));
  }
}

TEST_F(RealFiles, AnOdsWorkbookIsRead) {
  const std::string head =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?><office:document-content"
      " xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\""
      " xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\""
      " xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" office:version=\"1.2\"><office:body>"
      "<office:spreadsheet><table:table table:name=\"Sheet1\">";
  const auto text = [](const std::string& value) {
    return "<table:table-cell office:value-type=\"string\"><text:p>" + value + "</text:p></table:table-cell>";
  };
  const auto number = [](const std::string& value) {
    return "<table:table-cell office:value-type=\"float\" office:value=\"" + value + "\"><text:p>" + value +
           "</text:p></table:table-cell>";
  };
  const std::string date =
      "<table:table-cell office:value-type=\"date\" "
      "office:date-value=\"2024-07-22\"><text:p>x</text:p></table:table-cell>";
  std::string content = head + "<table:table-row>";
  for (const char* title : {"date", "good", "store", "type", "quantity"}) content += text(title);
  content += "</table:table-row><table:table-row>" + date + text("G-1") + number("1") + text("خرید") +
             number("2.5") +
             "</table:table-row></table:table></office:spreadsheet></office:body></office:document-content>";
  const std::string manifest =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?><manifest:manifest"
      " xmlns:manifest=\"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0\"><manifest:file-entry"
      " manifest:full-path=\"/\" manifest:media-type=\"application/vnd.oasis.opendocument.spreadsheet\"/>"
      "<manifest:file-entry manifest:full-path=\"content.xml\" "
      "manifest:media-type=\"text/xml\"/></manifest:manifest>";
  folder_.Remove("movements.csv");
  folder_["movements.ods"] = Zip({{"mimetype", "application/vnd.oasis.opendocument.spreadsheet"},
                                  {"content.xml", content},
                                  {"META-INF/manifest.xml", manifest}});
  Import();
  EXPECT_EQ(Ask("SELECT Date, Kala, Anbar, dec_text(Tedad) FROM Kardex"), (Rows{"1403/05/01|1|1|2.5|"}));
}

TEST_F(RealFiles, AFileThatIsNoWorkbookIsRefused) {
  folder_["goods.xlsx"] = "PK\x03\x04 no workbook";
  folder_.Remove("goods.csv");
  EXPECT_THROW(Import(), CompanyError);
  EXPECT_FALSE(std::filesystem::exists(company_.Path()));
}

// --- the reader itself ---

TEST(CsvReaderTest, RecordsLongerThanABlockAndQuotedLineEndsAreRead) {
  const TestFile file("long.csv");
  std::string text = "a,b\n";
  const std::string large(700'000, 'x');
  text += "\"" + large + "\n\"\"y\"\"\",2\r\n";
  for (int i = 0; i < 60'000; ++i) text += std::to_string(i) + ",نام\n";
  text += "last,one";
  WriteFile(file.Path(), text);
  CsvReader reader(file.Path());
  std::vector<std::string_view> fields;
  ASSERT_TRUE(reader.Next(fields));
  ASSERT_TRUE(reader.Next(fields));
  EXPECT_EQ(fields[0], large + "\n\"y\"");
  EXPECT_EQ(fields[1], "2");
  for (int i = 0; i < 60'000; ++i) {
    ASSERT_TRUE(reader.Next(fields));
    ASSERT_EQ(fields.size(), 2U);
    ASSERT_EQ(fields[0], std::to_string(i));
    ASSERT_EQ(fields[1], "نام");
    ASSERT_EQ(reader.Line(), static_cast<std::size_t>(i) + 4);
  }
  ASSERT_TRUE(reader.Next(fields));
  EXPECT_EQ(fields[1], "one");
  EXPECT_FALSE(reader.Next(fields));
}

TEST(CsvReaderTest, BlanksAreKeptInQuotesAndDroppedWithoutThem) {
  const TestFile file("blanks.csv");
  WriteFile(file.Path(), " a ,\" b \"\n");
  CsvReader reader(file.Path());
  std::vector<std::string_view> fields;
  ASSERT_TRUE(reader.Next(fields));
  EXPECT_EQ(fields, (std::vector<std::string_view>{"a", " b "}));
}

}  // namespace
}  // namespace goods
