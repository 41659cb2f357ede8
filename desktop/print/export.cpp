#include "desktop/print/export.h"

#include <array>
#include <chrono>

#include "company/files/whole_file.h"
#include "desktop/print/writers.h"
#include "host/components/control.h"
#include "host/core/jalali.h"
#include "host/core/text.h"

namespace goods {
namespace {

constexpr std::size_t kRowsBetweenQuestions = 4096;

class WholeFileSink : public ByteSink {
 public:
  explicit WholeFileSink(WholeFile& file) : file_(file) {}
  void Write(std::string_view bytes) override { file_.Write(bytes); }

 private:
  WholeFile& file_;
};

template <typename Write>
ExportOutcome WriteWhole(const std::string& path, const WritingOptions& options, const Write& write) {
  try {
    WholeFile file(path, {.forbidden = options.forbidden, .layer = options.layer});
    WholeFileSink sink(file);
    const ExportOutcome outcome = write(sink);
    file.Commit();
    return outcome;
  } catch (const ExportError&) {
    throw;
  } catch (const FileError& error) {
    throw ExportError(error.what());
  } catch (const std::exception&) {
    // A library's own words say nothing to a user.
    throw ExportError("پرونده «" + path + "» نوشته نشد. جای خالی دیسک و پوشه موقت را بررسی کنید.");
  }
}

// The length of the UTF-8 character that text begins with; 0 where it begins with none.
std::size_t CharacterLength(std::string_view text) {
  const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  const std::size_t length = first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  if (length == 0 || first > 0xF4 || length > text.size()) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return 0;
  }
  if (first == 0xE0 && byte(1) < 0xA0) return 0;
  if (first == 0xED && byte(1) > 0x9F) return 0;
  if (first == 0xF0 && byte(1) < 0x90) return 0;
  if (first == 0xF4 && byte(1) > 0x8F) return 0;
  return length;
}

}  // namespace

ByteSink::~ByteSink() = default;
ExportError::~ExportError() = default;
ExportStopped::~ExportStopped() = default;
UnfinishedFile::~UnfinishedFile() = default;

ExportOutcome WriteReport(const PrintJob& job, FileFormat format, const std::string& path,
                          const WritingOptions& options) {
  return WriteWhole(path, options, [&](ByteSink& sink) { return StreamReport(job, format, sink, options); });
}

void WriteDocument(const PrintedDocument& document, const std::string& path, const WritingOptions& options) {
  WriteWhole(path, options, [&](ByteSink& sink) {
    WriteDocumentTo(document, sink, options);
    return ExportOutcome();
  });
}

ExportOutcome StreamReport(const PrintJob& job, FileFormat format, ByteSink& sink,
                           const WritingOptions& options) {
  switch (format) {
    case FileFormat::Text:
      WriteTextTo(job, sink, options);
      break;
    case FileFormat::Csv:
      WriteCsvTo(job, sink, options);
      break;
    case FileFormat::Xlsx:
      return WriteXlsxTo(job, sink, options);
    case FileFormat::Json:
      WriteJsonTo(job, sink, options);
      break;
    case FileFormat::Pdf:
      WritePdfTo(job, sink, options);
      break;
  }
  return {};
}

std::string_view EndingOf(FileFormat format) {
  constexpr std::array<std::string_view, 5> kEndings{"txt", "csv", "xlsx", "json", "pdf"};
  return kEndings[static_cast<std::size_t>(format)];
}

std::string NoteOf(const ExportOutcome& outcome) {
  if (outcome.cutTexts == 0) return {};
  return std::to_string(outcome.cutTexts) +
         " متن از گنجایش یک خانه صفحه گسترده بلندتر بود و با «…» کوتاه شد.";
}

void TellProgress(const WritingOptions& options, std::size_t row) {
  if (!options.progress || row % kRowsBetweenQuestions != 0 || options.progress(row)) return;
  throw ExportStopped("نوشتن پرونده متوقف شد.");
}

std::vector<std::string> FileTitles(const IReportTable& table) {
  std::vector<std::string> titles;
  int swatches = 0;
  for (const ReportColumn& column : table.Columns()) {
    std::string title(Trim(PlainCaption(column.caption)));
    if (column.kind == CellKind::Swatch) ++swatches;
    if (title.empty()) {
      title = column.kind == CellKind::Swatch ? "برچسب " + std::to_string(swatches) : column.name;
    }
    titles.push_back(std::move(title));
  }
  return titles;
}

SplitTitle SplitCaption(const std::string& title) {
  const auto bar = title.find('|');
  if (bar == std::string::npos) return {"", title};
  return {std::string(Trim(std::string_view(title).substr(0, bar))),
          std::string(Trim(std::string_view(title).substr(bar + 1)))};
}

std::string IsoDate(const std::string& jalali) {
  const auto date = ParseJalali(jalali);
  if (!date) return jalali;
  const std::chrono::year_month_day day{std::chrono::sys_days(std::chrono::days(DaysFromJalali(*date)))};
  const auto two = [](unsigned number) { return (number < 10 ? "0" : "") + std::to_string(number); };
  return std::to_string(static_cast<int>(day.year())) + "-" + two(static_cast<unsigned>(day.month())) + "-" +
         two(static_cast<unsigned>(day.day()));
}

std::string ValidText(std::string text) {
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t length = CharacterLength(std::string_view(text).substr(at));
    if (length == 0) break;
    at += length;
  }
  if (at == text.size()) return text;
  std::string valid = text.substr(0, at);
  while (at < text.size()) {
    const std::size_t length = CharacterLength(std::string_view(text).substr(at));
    if (length == 0) {
      valid += "\xEF\xBF\xBD";
      ++at;
    } else {
      valid.append(text, at, length);
      at += length;
    }
  }
  return valid;
}

std::string ColorText(Color color) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string text = "#";
  for (int shift = 20; shift >= 0; shift -= 4) text += kHex[color >> shift & 15];
  return text;
}

}  // namespace goods
