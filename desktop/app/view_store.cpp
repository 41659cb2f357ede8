#include "desktop/app/view_store.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <algorithm>
#include <utility>

#include "host/core/text.h"
#include "host/data/persian.h"

namespace goods {
namespace {

bool IsCalled(const SavedView& view, std::string_view report, std::string_view name) {
  return view.report == report && FoldPersian(view.name) == FoldPersian(name);
}

}  // namespace

ViewStore::ViewStore(ISettings& settings, std::string_view company, std::int64_t user) : settings_(settings) {
  const QByteArray title(company.data(), static_cast<qsizetype>(company.size()));
  const QByteArray hash = QCryptographicHash::hash(title, QCryptographicHash::Sha1).toHex().left(16);
  key_ = "Views-" + hash.toStdString() + "-" + std::to_string(user);
  if (const auto text = settings_.ReadSettingFile(key_ + ".json")) views_ = ParseViews(*text);
}

std::vector<const SavedView*> ViewStore::ViewsOf(std::string_view report) const {
  std::vector<const SavedView*> views;
  for (const SavedView& view : views_) {
    if (view.report == report) views.push_back(&view);
  }
  std::stable_sort(views.begin(), views.end(), [](const SavedView* a, const SavedView* b) {
    return PersianSortKey(a->name) < PersianSortKey(b->name);
  });
  return views;
}

const SavedView* ViewStore::Find(std::string_view report, std::string_view name) const {
  const auto found = std::find_if(views_.begin(), views_.end(),
                                  [&](const SavedView& view) { return IsCalled(view, report, name); });
  return found == views_.end() ? nullptr : &*found;
}

bool ViewStore::Write(std::vector<SavedView> views) {
  if (views.size() > kMostViews || !settings_.WriteSettingFile(key_ + ".json", ViewsText(views)))
    return false;
  views_ = std::move(views);
  return true;
}

bool ViewStore::Put(SavedView view) {
  std::vector<SavedView> views = views_;
  const auto there = std::find_if(views.begin(), views.end(), [&](const SavedView& each) {
    return IsCalled(each, view.report, view.name);
  });
  if (there != views.end()) {
    *there = std::move(view);
  } else {
    views.push_back(std::move(view));
  }
  return Write(std::move(views));
}

bool ViewStore::Remove(std::string_view report, std::string_view name) {
  std::vector<SavedView> views = views_;
  std::erase_if(views, [&](const SavedView& view) { return IsCalled(view, report, name); });
  const bool last = FoldPersian(LastOf(report)) == FoldPersian(name);
  const std::string of(report);
  if (!Write(std::move(views))) return false;
  if (last) SetLast(of, "");
  return true;
}

bool ViewStore::Rename(std::string_view report, std::string_view name, std::string_view to) {
  const SavedView* free = Find(report, to);
  std::vector<SavedView> views = views_;
  const auto there = std::find_if(views.begin(), views.end(),
                                  [&](const SavedView& view) { return IsCalled(view, report, name); });
  if (there == views.end() || (free != nullptr && !IsCalled(*free, report, name))) return false;
  const std::string before = there->name;
  const std::string of = there->report;
  const std::string now(to);
  there->name = now;
  if (!Write(std::move(views))) return false;
  if (LastOf(of) == before) SetLast(of, now);
  return true;
}

std::string ViewStore::LastOf(std::string_view report) const {
  for (const std::string& line : Split(settings_.ReadSection(key_), '\n')) {
    const std::size_t equals = line.find('=');
    if (equals != std::string::npos && std::string_view(line).substr(0, equals) == report)
      return line.substr(equals + 1);
  }
  return {};
}

void ViewStore::SetLast(std::string_view report, std::string_view name) {
  std::string text;
  for (const std::string& line : Split(settings_.ReadSection(key_), '\n')) {
    if (!line.empty() && !line.starts_with(std::string(report) + "=")) text += line + "\n";
  }
  if (!name.empty()) text += std::string(report) + "=" + std::string(name) + "\n";
  settings_.WriteSection(key_, text);
}

}  // namespace goods
