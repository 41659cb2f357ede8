#include "detail_criteria.h"

#include <algorithm>
#include <cstddef>

#include "host/core/text.h"

namespace goods {

namespace {

std::string Number(std::int64_t value) { return std::to_string(value); }

bool Contains(const std::string& text, const std::string& part) {
  return PlainText(text).find(PlainText(part)) != std::string::npos;
}

// One or two letters out of the text, or all of it.
std::string PartOf(const std::string& text, std::mt19937& random) {
  if (random() % 3 == 0) return std::string(Trim(text));
  const std::size_t letters = CharCount(text);
  if (letters < 3) return std::string(Trim(text));
  const std::string behind = text.substr(FirstChars(text, random() % (letters - 2)).size());
  return std::string(Trim(FirstChars(behind, 2)));
}

bool ValueLies(int type, const std::string& value, const std::string& from, const std::string& to) {
  if (type == 3 || type == 4) {
    const auto number = NumberInText(value);
    const auto low = NumberInText(from);
    const auto high = NumberInText(to);
    return number && low && high && *low <= *number && *number <= *high;
  }
  if (type == 5) {
    const auto date = DateInText(value);
    return date && (from.empty() || DateInText(from) <= date) && (to.empty() || date <= DateInText(to));
  }
  return PlainText(value) == PlainText(from);
}

DetailCriterion RandomDetail(int slot, const DetailRow& row, const DetailRow& other, std::mt19937& random) {
  std::vector<std::size_t> kept;
  for (std::size_t i = 0; i < 5; ++i) {
    if (row.details[i] != 0) kept.push_back(i);
  }
  if (kept.empty()) return DetailIs(slot, 1, "سفید", "سفید");
  const std::size_t at = kept[random() % kept.size()];
  const std::int64_t detail = row.details[at];
  const int type = kDetailTypeOf[static_cast<std::size_t>(detail - 1)];
  const std::string& from = row.values[at];
  if (type == 1 || type == 2 || type == 6) return DetailIs(slot, detail, from, from);
  std::string to = random() % 2 == 0 ? from : type == 5 ? "1402/12/29" : "50";
  if (type == 5 && random() % 4 == 0) to = "";
  if (other.details[at] == detail && random() % 3 == 0) to = other.values[at];
  if (type == 5 && !from.empty() && !DateInText(from)) return DetailIs(slot, detail, "", "1402/06/31");
  if (type == 5 && !to.empty() && !DateInText(to)) to = "9999/99/99";
  return DetailIs(slot, detail, from, to);
}

DetailCriterion Title(int title, const DetailRow& row, std::mt19937& random) {
  using Text = std::string (*)(const DetailRow&);
  static constexpr Text kTexts[] = {
      nullptr,
      nullptr,
      [](const DetailRow& r) { return r.goodName; },
      [](const DetailRow& r) { return r.storeName; },
      [](const DetailRow& r) { return r.text; },
      [](const DetailRow& r) { return r.person; },
      [](const DetailRow& r) { return r.comment; },
  };
  using Cell = Decimal (*)(const DetailRow&);
  static constexpr Cell kNumbers[] = {
      [](const DetailRow& r) { return r.Varede(); }, [](const DetailRow& r) { return r.Sadere(); },
      [](const DetailRow& r) { return r.price; }, [](const DetailRow& r) { return r.Total(); }};
  const std::string start = "@TitleID = " + Number(title) + ",@Title = ";
  if (title == 1) {
    const std::int64_t code = row.good;
    return {start + QuotedStr(Number(code)), [code](const DetailRow& r) { return r.good == code; }};
  }
  if (title <= 6) {
    const Text text = kTexts[title];
    const std::string part = text(row).empty() ? "zz" : PartOf(text(row), random);
    return {start + QuotedStr(part), [text, part](const DetailRow& r) { return Contains(text(r), part); }};
  }
  const Cell cell = kNumbers[title - 7];
  const Decimal wanted = cell(row);
  return {start + QuotedStr(wanted.ToString()),
          [cell, wanted](const DetailRow& r) { return cell(r) == wanted; }};
}

DetailCriterion Range(const std::string& name, std::int64_t from, std::int64_t to,
                      std::int64_t DetailRow::*member) {
  if (from > to) std::swap(from, to);
  return {"@From" + name + " = " + Number(from) + ",@To" + name + " = " + Number(to),
          [=](const DetailRow& row) { return from <= row.*member && row.*member <= to; }};
}

DetailCriterion Equal(const std::string& name, std::int64_t value, std::int64_t DetailRow::*member) {
  return {"@" + name + " = " + Number(value), [=](const DetailRow& row) { return row.*member == value; }};
}

DetailCriterion Tags(std::mt19937& random) {
  constexpr std::int64_t kTags[] = {1, 2, 3, 11, 21};
  const std::int64_t first = kTags[random() % 5];
  const std::int64_t second = kTags[random() % 5];
  return {"@GoodTags = '," + Number(first) + "," + Number(second) + ",'",
          [=](const DetailRow& row) { return row.tags.contains(first) || row.tags.contains(second); }};
}

// The two names go without blanks around "=".
DetailCriterion List(std::mt19937& random) {
  const auto list = static_cast<std::int64_t>(1 + random() % 3);
  const bool inverted = random() % 2 == 0;
  return {"@GoodSelectedListCode=" + Number(list) + ",@GoodSelectedListNot=" + (inverted ? "-1" : "0"),
          [=](const DetailRow& row) { return row.lists.contains(list) != inverted; }};
}

}  // namespace

DetailCriterion DetailIs(int slot, std::int64_t detail, const std::string& from, const std::string& to) {
  const std::string n = Number(slot);
  return {"@DetailID" + n + " = " + Number(detail) + ",@Detail" + n + "Value1 = " + QuotedStr(from) +
              ",@Detail" + n + "Value2 = " + QuotedStr(to),
          [=](const DetailRow& row) {
            for (std::size_t i = 0; i < 5; ++i) {
              const int type = kDetailTypeOf[static_cast<std::size_t>(detail - 1)];
              if (row.details[i] == detail) return ValueLies(type, row.values[i], from, to);
            }
            return false;
          }};
}

DetailCriterion RandomDetailCriterion(int kind, const std::vector<DetailRow>& rows, int titles,
                                      std::mt19937& random) {
  const DetailRow& row = rows[random() % rows.size()];
  const DetailRow& other = rows[random() % rows.size()];
  switch (kind) {
    case kTags:
      return Tags(random);
    case kCategory: {
      constexpr std::int64_t kCodes[] = {1, 11, 12, 111, 2, 999};
      const std::int64_t code = kCodes[random() % 6];
      return {"@GoodCategoryCode = " + Number(code),
              [=](const DetailRow& r) { return r.categories.contains(code); }};
    }
    case kList:
      return List(random);
    case kGood:
      return Equal("GoodCode", row.good, &DetailRow::good);
    case kGroup:
      return Equal("GoodGroupCode", row.group, &DetailRow::group);
    case kGoodRange:
      return Range("GoodCode", row.good, other.good, &DetailRow::good);
    case kStoreRange:
      return Range("Anbar", row.store, other.store, &DetailRow::store);
    case kStore:
      return Equal("Anbar", row.store, &DetailRow::store);
    case kDateRange: {
      const std::string from = std::min(row.date, other.date);
      const std::string to = std::max(row.date, other.date);
      return {"@FromDate = " + QuotedStr(from) + ",@ToDate = " + QuotedStr(to),
              [=](const DetailRow& r) { return from <= r.date && r.date <= to; }};
    }
    case kTitle:
      return Title(1 + static_cast<int>(random() % static_cast<unsigned>(titles)), row, random);
    case kGroupRange:
      return Range("GoodGroupCode", row.group, other.group, &DetailRow::group);
    case kOperation:
      return Equal("OperationType", row.type, &DetailRow::type);
    default:
      return RandomDetail(kind - kDetail1 + 1, row, other, random);
  }
}

std::string JoinedParameters(const std::vector<DetailCriterion>& criteria) {
  std::string joined;
  for (const DetailCriterion& criterion : criteria) {
    joined += (joined.empty() ? "" : ",") + criterion.parameters;
  }
  return joined;
}

bool MeetsAll(const DetailRow& row, const std::vector<DetailCriterion>& criteria) {
  return std::all_of(criteria.begin(), criteria.end(),
                     [&](const DetailCriterion& criterion) { return criterion.holds(row); });
}

}  // namespace goods
