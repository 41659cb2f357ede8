#include "desktop/charts/chart_window.h"

#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "company/files/file_error.h"
#include "desktop/charts/chart_view.h"
#include "desktop/print/file_name.h"
#include "desktop/views/form_view.h"
#include "desktop/views/letter_keys.h"
#include "desktop/views/shown_text.h"
#include "desktop/views/theme.h"
#include "host/components/grid_groups.h"
#include "host/services/messages.h"

namespace goods {
namespace {

constexpr int kChartWindowWidth = 1100;
constexpr int kChartWindowHeight = 660;
constexpr QSize kLeastPicture(800, 500);

}  // namespace

ChartWindow::ChartWindow(FormView& form, TSmartDBGrid_QRT& grid, std::vector<ChartOffer> offers,
                         ChartServices services)
    : QDialog(&form),
      form_(form),
      grid_(grid),
      offers_(std::move(offers)),
      services_(std::move(services)),
      charts_(new QComboBox(this)),
      view_(new ChartView(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setObjectName("ChartWindow");
  setLayoutDirection(Qt::RightToLeft);
  setWindowTitle("نمودار: " + ShownText(services_.title));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  LayOut();
  for (const ChartOffer& offer : offers_) charts_->addItem(ToQt(offer.title));
  connect(charts_, &QComboBox::currentIndexChanged, this, [this] { Read(); });
  view_->OnPoint = [this](std::size_t point) { GoTo(point); };
  view_->OnOpen = [this](std::size_t) { Open(); };
  if (TDataSource* source = grid.DataSource()) {
    rows_ = source->Changed.Connect([this] {
      if (std::exchange(readPosted_, true)) return;
      QMetaObject::invokeMethod(
          this,
          [this] {
            readPosted_ = false;
            Read();
          },
          Qt::QueuedConnection);
    });
    row_ = source->Scrolled.Connect([this] {
      QMetaObject::invokeMethod(
          this, [this] { FollowRow(); }, Qt::QueuedConnection);
    });
  }
  Read();
  view_->setFocus();
}

ChartWindow::~ChartWindow() { delete view_; }  // its scene looks at the chart

void ChartWindow::LayOut() {
  auto* layout = new QVBoxLayout(this);
  const int margin = Scaled(12, *this);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(Scaled(8, *this));
  auto* bar = new QHBoxLayout;
  bar->setSpacing(Scaled(6, *this));
  charts_->setObjectName("Charts_CMB");
  charts_->setAccessibleName("نمودار");
  charts_->setVisible(offers_.size() > 1);
  charts_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  charts_->installEventFilter(this);
  bar->addWidget(charts_);
  const auto button = [&](const char* text, const char* name, auto action) {
    auto* made = new QPushButton(text, this);
    made->setObjectName(name);
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, action);
    bar->addWidget(made);
  };
  button("رونوشت  Ctrl+C", "CopyChart_BTN", [this] { Copy(); });
  button("ذخیره…  Ctrl+S", "SaveChart_BTN", [this] { Save(); });
  button("چاپ…  F9", "PrintChart_BTN", [this] { Print(); });
  bar->addStretch(1);
  button("بستن  Esc", "CloseChart_BTN", [this] { reject(); });
  layout->addLayout(bar);
  layout->addWidget(view_, 1);
  QString keys = "جهت‌نما: نقطه بعد و پیش   ·   Enter: رفتن به ردیف آن";
  keys += "   ·   + و - و 0: بزرگ، کوچک، همه";
  if (offers_.size() > 1) keys += "   ·   Ctrl+Tab: نمودار بعدی";
  auto* hint = new QLabel(keys, this);
  hint->setObjectName("ChartHint_LBL");
  hint->setForegroundRole(QPalette::PlaceholderText);
  hint->setWordWrap(true);
  layout->addWidget(hint);
  resize(Scaled(kChartWindowWidth, *this), Scaled(kChartWindowHeight, *this));
}

void ChartWindow::Choose(int chart) { charts_->setCurrentIndex(chart); }

void ChartWindow::Read() {
  const auto chosen = static_cast<std::size_t>(std::max(0, charts_->currentIndex()));
  Chart chart;
  form_.Run([&] { chart = offers_[chosen].make(); });
  // The old chart lives until the view has let it go.
  std::swap(chart_, chart);
  ChartTexts texts{ShownText(services_.title) + ": " + ShownText(chart_.title), {}};
  for (const std::string& line : services_.lines) texts.lines << ShownText(line);
  view_->ShowChart(chart_, std::move(texts), PointOfCurrentRow());
}

std::optional<std::size_t> ChartWindow::PointOfCurrentRow() const {
  const TADOQuery* query = grid_.DataSet();
  const auto current = query == nullptr ? std::nullopt : query->RecNo();
  if (!current) return std::nullopt;
  const std::size_t point = chart_.PointOf(*current);
  return point == kNoPoint ? std::nullopt : std::optional(point);
}

void ChartWindow::FollowRow() {
  if (const auto point = PointOfCurrentRow()) view_->SetMark(point);
}

void ChartWindow::GoTo(std::size_t point) {
  const std::size_t row = chart_.RowOf(point);
  if (row == kNoRow || row >= grid_.RowCount()) return;
  form_.Run([&] {
    if (!grid_.Selection().empty()) grid_.SetSelection({});
    if (!chart_.ofGroups) grid_.Groups().Reveal(row);
    grid_.MoveTo(row);
  });
}

void ChartWindow::Open() {
  const auto mark = view_->Scene()->Mark();
  if (!mark || chart_.RowOf(*mark) == kNoRow) return;
  GoTo(*mark);
  accept();
}

std::unique_ptr<ChartScene> ChartWindow::OnPaper() const {
  ChartTexts texts{ShownText(services_.title) + ": " + ShownText(chart_.title), {}};
  for (const std::string& line : services_.lines) texts.lines << ShownText(line);
  auto scene = std::make_unique<ChartScene>(chart_, std::move(texts), PaperLook());
  const ChartScene& seen = *view_->Scene();
  scene->Draw(QSizeF(view_->viewport()->size().expandedTo(kLeastPicture)));
  scene->Show(seen.FirstShown(), seen.CountShown());
  return scene;
}

bool ChartWindow::MayTakeAway() const { return !services_.mayTakeAway || services_.mayTakeAway(); }

void ChartWindow::Copy() { QGuiApplication::clipboard()->setImage(ImageOf(*OnPaper())); }

bool ChartWindow::SaveTo(const QString& path) {
  const PictureFormat format =
      path.endsWith(".svg", Qt::CaseInsensitive) ? PictureFormat::Svg : PictureFormat::Png;
  try {
    SavePicture(*OnPaper(), format, FromQt(path), services_.forbidden);
    return true;
  } catch (const FileError& error) {
    services_.messages->ShowSmartMessage(error.what(), "", MessageIcon::Error);
    return false;
  }
}

void ChartWindow::Save() {
  bool allowed = false;
  form_.Run([&] { allowed = MayTakeAway(); });
  if (!allowed) return;
  const QString svg = "SVG (*.svg)";
  QString chosen;
  const std::string name = ProposedFileName(services_.title + " - " + chart_.title, services_.today, "png");
  QString path =
      QFileDialog::getSaveFileName(this, "ذخیره نمودار", ToQt(name), "PNG (*.png);;" + svg, &chosen);
  if (path.isEmpty()) return;
  const bool ends = path.endsWith(".png", Qt::CaseInsensitive) || path.endsWith(".svg", Qt::CaseInsensitive);
  if (chosen == svg && path.endsWith(".png", Qt::CaseInsensitive)) {
    path.replace(path.size() - 4, 4, ".svg");  // the name was proposed before the kind was chosen
  } else if (!ends) {
    path += chosen == svg ? ".svg" : ".png";
  }
  form_.Run([&] { SaveTo(path); });
}

void ChartWindow::PrintOn(QPrinter& printer) { PrintPicture(*OnPaper(), printer); }

void ChartWindow::Print() {
  bool allowed = false;
  form_.Run([&] { allowed = MayTakeAway(); });
  if (!allowed) return;
  QPrinter printer(QPrinter::HighResolution);
  SetUpChartPage(printer);
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() == QDialog::Accepted) PrintOn(printer);
}

bool ChartWindow::TakeKey(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
  const int key = LatinKey(event.key());
  const int count = charts_->count();
  if (modifiers == Qt::NoModifier) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter) return Open(), true;
    if (key == Qt::Key_F9) return Print(), true;
    return false;
  }
  if (key == Qt::Key_Tab && modifiers == Qt::ControlModifier)
    return Choose((charts_->currentIndex() + 1) % count), true;
  if (key == Qt::Key_Backtab) return Choose((charts_->currentIndex() + count - 1) % count), true;
  if (modifiers != Qt::ControlModifier) return false;
  if (key == Qt::Key_C) return Copy(), true;
  if (key == Qt::Key_S) return Save(), true;
  if (key == Qt::Key_P) return Print(), true;
  return false;
}

// A list that hangs open has its keys; else they are the window's.
bool ChartWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == charts_ && event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() != Qt::Key_Return && TakeKey(key)) return true;
  }
  return QDialog::eventFilter(watched, event);
}

void ChartWindow::keyPressEvent(QKeyEvent* event) {
  if (!TakeKey(*event)) QDialog::keyPressEvent(event);
}

}  // namespace goods
