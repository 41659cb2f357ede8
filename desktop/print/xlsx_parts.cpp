#include "desktop/print/xlsx_parts.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "host/core/text.h"

namespace goods {
namespace {

constexpr std::size_t kLongestName = 31;  // of a sheet, in characters
constexpr std::string_view kPackageSpace = "http://schemas.openxmlformats.org/package/2006/";
constexpr std::string_view kOfficeSpace =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
constexpr std::string_view kWorkbookType = "application/vnd.openxmlformats-officedocument.spreadsheetml.";

// "_xHHHH_", which a reader takes for a character.
bool IsSpelledCharacter(std::string_view text) {
  constexpr std::size_t kLength = 7;
  if (text.size() < kLength || text[1] != 'x' || text[kLength - 1] != '_') return false;
  return std::all_of(text.begin() + 2, text.begin() + kLength - 1,
                     [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; });
}

void AppendSpelled(std::string& out, unsigned char c) {
  constexpr char kHex[] = "0123456789ABCDEF";
  out += "_x00";
  out += kHex[c >> 4U];
  out += kHex[c & 0xFU];
  out += '_';
}

// U+FFFE and U+FFFF are no characters of XML.
bool IsNoCharacter(std::string_view text) {
  return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF");
}

// The characters that AppendXml looks at one by one.
bool IsPlainXml(char c) {
  return !(c >= 0 && c < ' ') && c != '&' && c != '<' && c != '>' && c != '"' && c != '_' && c != '\xEF';
}

std::string Relationship(int number, std::string_view type, const std::string& target) {
  return "<Relationship Id=\"rId" + std::to_string(number) + "\" Type=\"" + std::string(type) +
         "\" Target=\"" + target + "\"/>";
}

std::string Relationships(const std::string& each) {
  return std::string(kXmlHead) + "<Relationships xmlns=\"" + std::string(kPackageSpace) + "relationships\">" +
         each + "</Relationships>";
}

std::string WorkbookXml(const std::vector<XlsxSheet>& sheets) {
  std::string list;
  std::string names;
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    const std::string number = std::to_string(i + 1);
    list += "<sheet name=\"";
    AppendXml(list, sheets[i].name);
    list += "\" sheetId=\"" + number + "\" r:id=\"rId" + number + "\"/>";
    const auto define = [&](const char* name, const std::string& cells, const char* hidden) {
      if (cells.empty()) return;
      names += std::string("<definedName name=\"_xlnm.") + name + "\" localSheetId=\"" + std::to_string(i) +
               "\"" + hidden + ">";
      AppendXml(names, "'" + ReplaceAll(sheets[i].name, "'", "''") + "'!" + cells);
      names += "</definedName>";
    };
    define("_FilterDatabase", sheets[i].filtered, " hidden=\"1\"");
    define("Print_Titles", sheets[i].pageHead, "");
  }
  return std::string(kXmlHead) + "<workbook xmlns=\"" + std::string(kSheetSpace) + "\" xmlns:r=\"" +
         std::string(kOfficeSpace) + "\"><bookViews><workbookView/></bookViews><sheets>" + list +
         "</sheets>" + (names.empty() ? "" : "<definedNames>" + names + "</definedNames>") +
         "<calcPr fullCalcOnLoad=\"1\"/>" + "</workbook>";
}

std::string TitleXml(const std::string& title) {
  std::string xml(kXmlHead);
  xml += "<cp:coreProperties xmlns:cp=\"" + std::string(kPackageSpace) +
         "metadata/core-properties\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\"><dc:title>";
  AppendXml(xml, title);
  return xml + "</dc:title></cp:coreProperties>";
}

}  // namespace

std::string SheetPartName(std::size_t sheet) {
  return "xl/worksheets/sheet" + std::to_string(sheet + 1) + ".xml";
}

std::string ContentTypesXml(std::size_t sheets) {
  std::string xml(kXmlHead);
  const auto part = [&xml](const std::string& name, const std::string& type) {
    xml += "<Override PartName=\"/" + name + "\" ContentType=\"" + type + "\"/>";
  };
  xml +=
      "<Types xmlns=\"" + std::string(kPackageSpace) + "content-types\">" +
      R"(<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>)" +
      R"(<Default Extension="xml" ContentType="application/xml"/>)";
  const std::string type(kWorkbookType);
  part("xl/workbook.xml", type + "sheet.main+xml");
  part("xl/styles.xml", type + "styles+xml");
  part("docProps/core.xml", "application/vnd.openxmlformats-package.core-properties+xml");
  for (std::size_t i = 0; i < sheets; ++i) part(SheetPartName(i), type + "worksheet+xml");
  return xml + "</Types>";
}

std::vector<XlsxPart> XlsxPartsOf(const std::string& title, const std::vector<XlsxSheet>& sheets) {
  const std::string office(kOfficeSpace);
  std::string parts;
  int number = 0;
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    parts +=
        Relationship(++number, office + "/worksheet", "worksheets/sheet" + std::to_string(i + 1) + ".xml");
  }
  parts += Relationship(++number, office + "/styles", "styles.xml");
  const std::string package =
      Relationship(1, office + "/officeDocument", "xl/workbook.xml") +
      Relationship(2, std::string(kPackageSpace) + "relationships/metadata/core-properties",
                   "docProps/core.xml");
  return {{"_rels/.rels", Relationships(package)},
          {"docProps/core.xml", TitleXml(title)},
          {"xl/workbook.xml", WorkbookXml(sheets)},
          {"xl/_rels/workbook.xml.rels", Relationships(parts)}};
}

std::string SheetName(const std::string& title, std::size_t sheet) {
  std::string name;
  for (const char c : title) name += std::strchr("[]:*?/\\", c) != nullptr || (c >= 0 && c < ' ') ? ' ' : c;
  name = Trim(name);
  while (!name.empty() && (name.front() == '\'' || name.back() == '\'')) {
    name = name.front() == '\'' ? name.substr(1) : name.substr(0, name.size() - 1);
  }
  if (name.empty()) name = "گزارش";
  const std::string number = sheet == 0 ? "" : " (" + std::to_string(sheet + 1) + ")";
  std::string_view first = FirstChars(name, kLongestName - CharCount(number));
  // What is left over ends with a whole word, unless that would be little, and without an open bracket.
  if (first.size() < name.size() && name[first.size()] != ' ') {
    if (const auto blank = first.rfind(' '); blank != std::string_view::npos && blank > first.size() / 2) {
      first = first.substr(0, blank);
    }
  }
  while (!first.empty() && (first.back() == ' ' || first.back() == '(')) first.remove_suffix(1);
  return std::string(first) + number;
}

std::string ColumnLetters(std::size_t column) {
  std::string letters;
  for (std::size_t left = column + 1; left > 0; left = (left - 1) / 26) {
    letters.insert(letters.begin(), static_cast<char>('A' + (left - 1) % 26));
  }
  return letters;
}

void AppendXml(std::string& out, std::string_view text) {
  while (!text.empty()) {
    const auto plain =
        static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsPlainXml) - text.begin());
    out += text.substr(0, plain);
    text.remove_prefix(plain);
    if (text.empty()) return;
    const char c = text.front();
    std::size_t taken = 1;
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      case '\t':
      case '\n':
        out += c;
        break;
      case '_':
        if (IsSpelledCharacter(text)) {
          AppendSpelled(out, '_');
        } else {
          out += c;
        }
        break;
      case '\xEF':
        taken = std::min<std::size_t>(3, text.size());
        out += IsNoCharacter(text) ? std::string_view("\xEF\xBF\xBD") : text.substr(0, taken);
        break;
      default:
        AppendSpelled(out, static_cast<unsigned char>(c));
    }
    text.remove_prefix(taken);
  }
}

}  // namespace goods
