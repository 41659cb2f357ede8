// ViewStore: the saved views of a user of a company.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/requests/saved_view.h"
#include "host/services/settings.h"

namespace goods {

// Kept in a file of the settings folder, apart for each company, which its title names, and each user; which
// view of a report was used last in a section of the settings. A file that cannot be read counts as none; of
// a view that cannot be, the others count.
class ViewStore {
 public:
  static constexpr std::size_t kMostViews = 200;

  // settings must outlive it.
  ViewStore(ISettings& settings, std::string_view company, std::int64_t user);

  const std::vector<SavedView>& Views() const { return views_; }
  std::vector<const SavedView*> ViewsOf(std::string_view report) const;  // by name
  // Names tell views of one report apart, as a Persian reader compares; null for none.
  const SavedView* Find(std::string_view report, std::string_view name) const;

  // Takes the place of the view of that name. False, and nothing changes, where it cannot be written or there
  // are too many.
  bool Put(SavedView view);
  bool Remove(std::string_view report, std::string_view name);
  // The new name must be free. What was used last stays so.
  bool Rename(std::string_view report, std::string_view name, std::string_view to);

  std::string LastOf(std::string_view report) const;  // a view's name; empty for none
  void SetLast(std::string_view report, std::string_view name);

 private:
  bool Write(std::vector<SavedView> views);

  ISettings& settings_;
  std::string key_;
  std::vector<SavedView> views_;
};

}  // namespace goods
