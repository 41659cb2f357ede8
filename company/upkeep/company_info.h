// What a company file is, at a glance.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace goods {

struct CompanyInfo {
  std::string title;
  int schema = 0;
  std::int64_t bytes = 0;
  std::int64_t goods = 0;
  std::int64_t stores = 0;
  std::int64_t persons = 0;
  std::int64_t movements = 0;
  std::int64_t documents = 0;
  std::int64_t detailRows = 0;
  std::int64_t batches = 0;  // taken in from files
  std::string firstDate;     // Jalali; empty without movements
  std::string lastDate;
  struct User {
    std::string login;
    std::string name;
    bool everyRight = false;
    bool seesPrices = false;
    bool hasPassword = false;
    std::int64_t rights = 0;
  };
  std::vector<User> users;
};

// Reads only; an older file is brought up to date first, unless it is marked read-only. Throws CompanyError.
CompanyInfo ReadCompanyInfo(const std::string& path);
// As lines of Persian text.
std::string CompanyInfoText(const CompanyInfo& info);

}  // namespace goods
