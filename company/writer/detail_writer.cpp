#include "company/writer/detail_writer.h"

#include <algorithm>
#include <utility>

namespace goods {

DetailWriter::DetailWriter(Database& db, RecordSorter& details,
                           std::function<void(const Unattached&)> unattached)
    : insert_(db.Prepare(
          "INSERT INTO DetailKardex(Kala, Date, Radif, DetailValueID, Anbar, Percode, Type, OperationCode,"
          " OperationRow, Amount1, Amount2, Amount3, Length, Width, Comment)"
          " VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15)")),
      details_(details),
      unattached_(std::move(unattached)) {
  details_.Sort();
  more_ = details_.Next();
}

void DetailWriter::Report(Unattached::Kind kind, std::size_t tag) const {
  if (unattached_) unattached_({kind, tag});
}

void DetailWriter::EndGood() {
  for (const Waiting& part : ofGood_) {
    if (!part.written) Report(Unattached::Kind::DetailWithoutMovement, part.tag);
  }
  ofGood_.clear();
}

void DetailWriter::BeginGood(std::int64_t good) {
  EndGood();
  const auto wanted = static_cast<std::uint64_t>(good);
  for (; more_ && details_.CurrentKey().high <= wanted; more_ = details_.Next()) {
    const RecordSorter::Key& key = details_.CurrentKey();
    const WaitingDetail waiting = UnpackDetail(details_.Bytes(), static_cast<std::int64_t>(key.low));
    if (key.high < wanted) {
      Report(Unattached::Kind::DetailWithoutMovement, waiting.tag);
    } else {
      ofGood_.push_back({waiting.detail, std::string(waiting.comment), waiting.tag, false});
    }
  }
  std::stable_sort(ofGood_.begin(), ofGood_.end(), [](const Waiting& a, const Waiting& b) {
    return a.detail.radif != b.detail.radif ? a.detail.radif < b.detail.radif
                                            : a.detail.valueId < b.detail.valueId;
  });
}

void DetailWriter::Write(const WaitingMovement& waiting) {
  if (ofGood_.empty()) return;
  auto part = std::lower_bound(
      ofGood_.begin(), ofGood_.end(), waiting.radif,
      [](const Waiting& candidate, std::int64_t radif) { return candidate.detail.radif < radif; });
  const Waiting* last = nullptr;
  for (; part != ofGood_.end() && part->detail.radif == waiting.radif; ++part) {
    part->written = true;
    if (last != nullptr && last->detail.valueId == part->detail.valueId) {
      Report(Unattached::Kind::RepeatedDetail, part->tag);
      continue;
    }
    Insert(waiting, *part);
    last = &*part;
  }
}

void DetailWriter::Insert(const WaitingMovement& waiting, const Waiting& part) {
  const Movement& movement = waiting.movement;
  insert_.Bind(1, movement.good);
  insert_.Bind(2, movement.date);
  insert_.Bind(3, waiting.radif);
  insert_.Bind(4, part.detail.valueId);
  insert_.Bind(5, movement.store);
  insert_.Bind(6, movement.person);
  insert_.Bind(7, std::int64_t{movement.type});
  insert_.Bind(8, movement.document);
  insert_.Bind(9, movement.row);
  insert_.Bind(10, part.detail.amount);
  insert_.Bind(11, part.detail.amount2);
  insert_.Bind(12, part.detail.count);
  insert_.Bind(13, part.detail.length);
  insert_.Bind(14, part.detail.width);
  insert_.Bind(15, std::string_view(part.comment));
  insert_.Run();
}

void DetailWriter::End() {
  EndGood();
  for (; more_; more_ = details_.Next()) {
    Report(Unattached::Kind::DetailWithoutMovement, UnpackDetail(details_.Bytes(), 0).tag);
  }
}

}  // namespace goods
