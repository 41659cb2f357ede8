// Where movements wait until they are put in order: first by document, then by good and date.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "company/embedded/sqlite.h"
#include "company/writer/movement.h"
#include "company/writer/record_sorter.h"

namespace goods {

// What a movement type is, by its number; other numbers stand for no kind of document.
struct MovementKinds {
  explicit MovementKinds(Database& db);
  static std::size_t Place(std::int64_t type) {
    return type >= 0 && type < 255 ? static_cast<std::size_t>(type) : 255;
  }
  std::array<std::int64_t, 256> kind{};  // of document; 0: none
  std::array<bool, 256> priceIsCost{};
};

// A movement read back; date and comment live as long as the object stays as it is.
struct WaitingMovement {
  Movement movement;
  std::int64_t radif = 0;
  std::array<char, 10> date{};
};

struct WaitingDetail {
  DetailMovement detail;
  std::string_view comment;
  std::size_t tag = 0;
};

// Movements, detail rows and remarks come in any order. Memory is bounded: see RecordSorter.
class MovementIntake {
 public:
  // path: a file beside which runs may lie. lastRadif: the largest Radif that is taken already.
  MovementIntake(std::string path, const MovementKinds& kinds, std::int64_t lastRadif);

  // Returns the row's Radif. Throws CompanyError when the date is no date text.
  std::int64_t Add(const Movement& movement);
  // For a movement of the good, which may come later. tag comes back when there is none such.
  void AddDetail(std::int64_t good, const DetailMovement& detail, std::string_view comment, std::size_t tag);
  // In place of the remark that a document has from its first row.
  void AddRemark(std::int64_t kind, std::int64_t number, std::string_view remark, std::size_t tag);

  std::int64_t Movements() const { return movements_.Count(); }
  // The Radif behind which those of the intake begin.
  std::int64_t FirstRadif() const { return firstRadif_; }
  std::int64_t LastRadif() const { return lastRadif_; }

  // By kind, number and Radif; those of no kind of document come first.
  RecordSorter& ByDocument() { return movements_; }
  // By good and Radif.
  RecordSorter& Details() { return details_; }
  // By kind and number.
  RecordSorter& Remarks() { return remarks_; }

  static RecordSorter::Key DocumentKey(std::int64_t kind, std::int64_t number, std::uint64_t low);
  static std::int64_t KindOf(const RecordSorter::Key& key);

 private:
  const MovementKinds& kinds_;
  std::int64_t firstRadif_;
  std::int64_t lastRadif_;
  RecordSorter movements_;
  RecordSorter details_;
  RecordSorter remarks_;
  std::string packed_;
};

// A movement as the bytes of a record, and back.
void PackMovement(const Movement& movement, std::int64_t radif, std::string& bytes);
void UnpackMovement(std::string_view bytes, WaitingMovement& waiting);
WaitingDetail UnpackDetail(std::string_view bytes, std::int64_t radif);
// The good, date and Radif as a key that sorts so.
RecordSorter::Key CardKey(const WaitingMovement& waiting);

}  // namespace goods
