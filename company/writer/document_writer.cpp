#include "company/writer/document_writer.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>

namespace goods {

namespace {

constexpr std::int64_t kOpeningKind = 4;
constexpr std::int64_t kTransferKind = 7;
constexpr int kTransferIn = 7;

struct Header {
  std::uint64_t key = 0;
  std::int64_t kind = 0;
  std::int64_t number = 0;
  std::int64_t rows = 0;
  std::string date;
  std::int64_t person = 0;
  std::int64_t store = 0;
  std::int64_t toStore = 0;
  std::string remark;
};

class Headers {
 public:
  Headers(Database& db, RecordSorter& remarks, const std::function<void(const Unattached&)>& unattached)
      : insert_(db.Prepare("INSERT INTO Documents(Kind, Code, Date, Percode, Anbar, ToAnbar, Comment)"
                           " VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7)")),
        remarks_(remarks),
        unattached_(unattached) {
    remarks_.Sort();
    more_ = remarks_.Next();
  }

  // Gives the row its number where it has none.
  void Take(const RecordSorter::Key& key, Movement& movement) {
    const std::int64_t kind = MovementIntake::KindOf(key);
    if (kind == 0) return;
    if (key.high != header_.key) Begin(key.high, kind, movement);
    ++header_.rows;
    if (movement.row == 0) movement.row = header_.rows;
    if (kind != kTransferKind) return;
    const bool incoming = movement.type == kTransferIn;
    if (incoming) header_.toStore = std::max(header_.toStore, movement.store);
    if (!incoming && header_.store == 0) header_.store = movement.store;
  }

  void End() {
    Write();
    while (more_) Refuse();
  }

 private:
  void Begin(std::uint64_t key, std::int64_t kind, const Movement& movement) {
    Write();
    header_ = Header();
    header_.key = key;
    header_.kind = kind;
    header_.number = movement.document;
    header_.date = movement.date;
    header_.person = movement.person;
    if (movement.type != kTransferIn) header_.store = movement.store;
    header_.remark = movement.comment;
  }

  void Write() {
    if (header_.key == 0 || header_.kind == kOpeningKind) return;
    while (more_ && remarks_.CurrentKey().high < header_.key) Refuse();
    while (more_ && remarks_.CurrentKey().high == header_.key) {
      header_.remark = remarks_.Bytes().substr(sizeof(std::uint64_t));
      more_ = remarks_.Next();
    }
    insert_.Bind(1, header_.kind);
    insert_.Bind(2, header_.number);
    insert_.Bind(3, std::string_view(header_.date));
    insert_.Bind(4, header_.person);
    insert_.Bind(5, header_.store);
    insert_.Bind(6, header_.toStore);
    insert_.Bind(7, std::string_view(header_.remark));
    insert_.Run();
  }

  void Refuse() {
    std::uint64_t tag = 0;
    std::memcpy(&tag, remarks_.Bytes().data(), sizeof(tag));
    if (unattached_) unattached_({Unattached::Kind::RemarkWithoutDocument, tag});
    more_ = remarks_.Next();
  }

  Statement insert_;
  RecordSorter& remarks_;
  const std::function<void(const Unattached&)>& unattached_;
  bool more_ = false;
  Header header_;
};

}  // namespace

void WriteDocuments(Database& db, MovementIntake& intake, WorkMeter& meter,
                    const std::function<void(const WaitingMovement&)>& row,
                    const std::function<void(const Unattached&)>& unattached) {
  RecordSorter& movements = intake.ByDocument();
  movements.Sort();
  Headers headers(db, intake.Remarks(), unattached);
  WaitingMovement waiting;
  while (movements.Next()) {
    UnpackMovement(movements.Bytes(), waiting);
    headers.Take(movements.CurrentKey(), waiting.movement);
    row(waiting);
    meter.Step();
  }
  headers.End();
  meter.End();
}

}  // namespace goods
