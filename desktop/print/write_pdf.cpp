#include <QByteArray>
#include <QIODevice>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QString>
#include <exception>

#include "desktop/print/printed_document.h"
#include "desktop/print/writers.h"
#include "desktop/views/shown_text.h"

namespace goods {
namespace {

constexpr int kPdfDpi = 600;

// The characters that the codes of a font's map stand for, as a reader searches for them. A code of a
// letter's joined form becomes the letter's own, one of a ligature those of its letters, from left to right:
// readers take a line's characters as they stand on paper and then turn the line round.
QByteArray PlainCodes(const QByteArray& code) {
  bool isNumber = false;
  const ushort unit = code.toUShort(&isNumber, 16);
  if (code.size() != 4 || !isNumber || unit < 0xFB50 || unit > 0xFEFC) return code;
  QByteArray plain;
  for (const QChar letter : QString(QChar(unit)).normalized(QString::NormalizationForm_KC)) {
    plain.prepend(QByteArray::number(letter.unicode(), 16).toUpper().rightJustified(4, '0'));
  }
  return plain;
}

// The toolkit's fonts map the shapes of Arabic script to the codes of those shapes, which nobody types. The
// map of each font is put right as it is written; it keeps its length, because places in the file are told
// elsewhere: what ligatures need more comes from the blanks between the codes.
QByteArray SearchableMap(const QByteArray& map) {
  const auto open = map.indexOf("beginbfrange");
  const auto close = map.lastIndexOf(']');
  if (open < 0 || close < open) return map;
  QByteArray codes;
  for (auto at = open; at <= close; ++at) {
    if (map[at] != '<') {
      const bool between = map[at] == ' ' && map[at - 1] == '>' && map.mid(at + 1, 1) == "<";
      if (!between) codes += map[at];
      continue;
    }
    const auto end = map.indexOf('>', at);
    if (end < 0) return map;
    codes += '<' + PlainCodes(map.mid(at + 1, end - at - 1)) + '>';
    at = end;
  }
  const auto room = close + 1 - open - codes.size();
  if (room < 0) return map;
  return map.left(open) + codes + QByteArray(room, ' ') + map.mid(close + 1);
}

// The toolkit writes on whatever its device answers, so the first failure is kept and nothing more goes out.
class SinkDevice : public QIODevice {
 public:
  explicit SinkDevice(ByteSink& sink) : sink_(sink) { open(QIODevice::WriteOnly); }
  void Check() const {
    if (error_) std::rethrow_exception(error_);
  }
  bool isSequential() const override { return true; }

 protected:
  qint64 readData(char* /*data*/, qint64 /*size*/) override { return -1; }
  qint64 writeData(const char* data, qint64 size) override {
    if (error_) return -1;
    try {
      QByteArray bytes = QByteArray::fromRawData(data, size);
      if (bytes.contains("begincmap")) bytes = SearchableMap(bytes);
      sink_.Write({bytes.constData(), static_cast<std::size_t>(bytes.size())});
      return size;
    } catch (...) {
      error_ = std::current_exception();
      return -1;
    }
  }

 private:
  ByteSink& sink_;
  std::exception_ptr error_;
};

}  // namespace

void WritePdfTo(const PrintJob& job, ByteSink& sink, const WritingOptions& options) {
  WriteDocumentTo(PrintedDocument({job}, options.today), sink, options);
}

void WriteDocumentTo(const PrintedDocument& document, ByteSink& sink, const WritingOptions& options) {
  SinkDevice device(sink);
  {
    QPdfWriter writer(&device);
    writer.setTitle(ToQt(document.Title()));
    writer.setResolution(kPdfDpi);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageOrientation(document.Landscape() ? QPageLayout::Landscape : QPageLayout::Portrait);
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    QPainter painter;
    if (!painter.begin(&writer)) throw UnfinishedFile();
    painter.scale(kPdfDpi / kPointsPerInch, kPdfDpi / kPointsPerInch);
    for (std::size_t page = 0; page < document.PageCount(); ++page) {
      device.Check();
      if (options.progress && !options.progress(document.FirstRow(page))) {
        throw ExportStopped("نوشتن پرونده متوقف شد.");
      }
      if (page > 0) writer.newPage();
      document.Paint(painter, page);
    }
    painter.end();
  }
  device.Check();
}

}  // namespace goods
