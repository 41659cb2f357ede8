#include "desktop/library/c_services.h"

#include <QByteArray>
#include <array>
#include <utility>

#include "host/base/base_dock.h"

namespace goods {
namespace {

struct RecordSwitch {
  int32_t goods_desktop_record::*given;
  bool TSettings::*value;
};
constexpr std::array<RecordSwitch, 6> kRecordSwitches{{
    {&goods_desktop_record::second_unit, &TSettings::SecondUnit},
    {&goods_desktop_record::second_unit_is_larger, &TSettings::SecondUnitIsLarger},
    {&goods_desktop_record::whole_and_part, &TSettings::WholeAndPart},
    {&goods_desktop_record::goods_detail, &TSettings::GoodsDetail},
    {&goods_desktop_record::price_level, &TSettings::PriceLevel},
    {&goods_desktop_record::price_history, &TSettings::PriceHistory},
}};

struct RecordNumber {
  int32_t goods_desktop_record::*given;
  int TSettings::*value;
};
constexpr std::array<RecordNumber, 3> kRecordNumbers{{
    {&goods_desktop_record::price_basis, &TSettings::PriceBasis},
    {&goods_desktop_record::buy_or_sell, &TSettings::BuyOrSell},
    {&goods_desktop_record::price_level_code, &TSettings::PriceLevelCode},
}};
constexpr std::array<RecordNumber, 2> kRecordDecimals{{
    {&goods_desktop_record::quantity_decimals, &TSettings::QuantityDecimals},
    {&goods_desktop_record::amount_decimals, &TSettings::AmountDecimals},
}};

goods_desktop_record RecordOf(const TSettings& settings) {
  goods_desktop_record record{};
  record.struct_size = sizeof record;
  for (const auto& [given, value] : kRecordSwitches) record.*given = settings.*value ? 1 : 0;
  for (const auto& [given, value] : kRecordNumbers) record.*given = settings.*value;
  for (const auto& [given, value] : kRecordDecimals) record.*given = settings.*value;
  return record;
}

void TakeRecord(const goods_desktop_record& record, TSettings& settings) {
  for (const auto& [given, value] : kRecordSwitches) settings.*value = record.*given != 0;
  for (const auto& [given, value] : kRecordNumbers) settings.*value = record.*given;
  for (const auto& [given, value] : kRecordDecimals) {
    if (record.*given < 0 || record.*given > 9) {
      FailWrongCall("شمار رقم‌های اعشار باید ۰ تا ۹ باشد.");
    }
    settings.*value = record.*given;
  }
}

class OwnRights : public IRights {
 public:
  // With the company's own for what the table leaves null.
  OwnRights(const goods_desktop_rights& table, TextEncoding encoding, CompanyRights& standard)
      : table_(table), encoding_(encoding), standard_(standard) {}

  const TUserInfo& UserInfo() const override { return standard_.UserInfo(); }

  bool HavePermission(const TUserInfo& user, int softwarePart, int permission, bool showMessage, bool logged,
                      std::string_view text) override {
    if (table_.have_permission == nullptr)
      return standard_.HavePermission(user, softwarePart, permission, showMessage, logged, text);
    const TextOut added(text, encoding_);
    const std::int32_t answer = table_.have_permission(table_.context, user.Code, softwarePart, permission,
                                                       showMessage ? 1 : 0, logged ? 1 : 0, added.Get());
    if (answer == 0 && showMessage) standard_.TellRefusal(softwarePart, permission, text);
    return answer == 1;
  }

  void SetUserEvent(int softwarePart, int permission, std::int64_t code) override {
    if (table_.set_user_event != nullptr)
      table_.set_user_event(table_.context, softwarePart, permission, code);
  }

  bool SeesPrices() const override {
    return table_.sees_prices == nullptr ? standard_.SeesPrices() : table_.sees_prices(table_.context) == 1;
  }

 private:
  goods_desktop_rights table_;
  TextEncoding encoding_;
  CompanyRights& standard_;
};

// The kind of document that stands for a module.
std::int32_t KindOf(DocumentModule module) {
  switch (module) {
    case DocumentModule::Sale:
      return GOODS_DESKTOP_SALE_INVOICE;
    case DocumentModule::Buy:
      return GOODS_DESKTOP_PURCHASE_INVOICE;
    case DocumentModule::Returns:
      return GOODS_DESKTOP_SALE_RETURN;
    case DocumentModule::Transfer:
      return GOODS_DESKTOP_TRANSFER;
    case DocumentModule::FixProduce:
      return GOODS_DESKTOP_FIX_PRODUCTION;
    case DocumentModule::VarProduce:
      return GOODS_DESKTOP_VAR_PRODUCTION;
    case DocumentModule::AdvancedProduce:
      return GOODS_DESKTOP_ADVANCED_PRODUCTION;
    case DocumentModule::GoodAssignment:
      return GOODS_DESKTOP_ISSUE_NOTE;
    case DocumentModule::GoodReciept:
      return GOODS_DESKTOP_RECEIPT_NOTE;
    case DocumentModule::Voucher:
      break;
  }
  return GOODS_DESKTOP_VOUCHER;
}

OwnDocuments DocumentsOf(const OwnTables& tables) {
  const goods_desktop_documents& table = tables.documents;
  OwnDocuments own;
  if (table.open != nullptr) {
    own.open = [table](DocumentKind kind, std::int64_t code, int mode) {
      return table.open(table.context, static_cast<std::int32_t>(kind), code, mode) != 0;
    };
  }
  if (table.is_busy != nullptr) {
    own.isBusy = [table](DocumentModule module) { return table.is_busy(table.context, KindOf(module)) != 0; };
  }
  if (table.is_shown != nullptr) {
    own.isShown = [table](DocumentModule module) {
      return table.is_shown(table.context, KindOf(module)) != 0;
    };
  }
  if (table.unsaved_vouchers != nullptr) {
    own.unsavedVouchers = [table, encoding = tables.encoding](std::string_view kind) {
      return table.unsaved_vouchers(table.context, TextOut(kind, encoding).Get()) != 0;
    };
  }
  return own;
}

std::function<bool(const ShownMessage&)> MessagesOf(const OwnTables& tables) {
  if (tables.messages.show == nullptr) return {};
  return [table = tables.messages, encoding = tables.encoding](const ShownMessage& message) {
    const TextOut caption(message.caption, encoding);
    const TextOut text(message.text, encoding);
    const TextOut details(message.details, encoding);
    return table.show(table.context, static_cast<std::int32_t>(message.icon), caption.Get(), text.Get(),
                      details.Get(), message.balloon ? 1 : 0) != 0;
  };
}

DesktopWaiting::Indicator WaitingOf(const OwnTables& tables) {
  const goods_desktop_waiting& table = tables.waiting;
  if (table.show == nullptr) return {};
  return {[table, encoding = tables.encoding](std::string_view text, std::size_t rows) {
            return table.show(table.context, TextOut(text, encoding).Get(), rows) != 0;
          },
          [table] { table.hide(table.context); }};
}

DesktopWindows::Place PlaceOf(const OwnTables& tables) {
  const goods_desktop_windows& table = tables.windows;
  if (table.show == nullptr) return {};
  return {[table, encoding = tables.encoding](FormView& view) {
            // Dialogs belong to the report behind them.
            if (dynamic_cast<const TBaseDock_FRM*>(&view.Form()) == nullptr) return false;
            const TextOut title(view.windowTitle().toStdString(), encoding);
            return table.show(table.context, static_cast<QWidget*>(&view), title.Get()) != 0;
          },
          [table](FormView& view) { table.hide(table.context, static_cast<QWidget*>(&view)); }};
}

// Places are kept as sections, so that a program that keeps those has them too.
DesktopWindows::PlaceStore PlacesIn(OwnSettings& settings) {
  const auto section = [](const QString& key) { return "Place." + key.toStdString(); };
  return {[&settings, section](const QString& key) {
            return QByteArray::fromBase64(QByteArray::fromStdString(settings.ReadSection(section(key))));
          },
          [&settings, section](const QString& key, const QByteArray& state) {
            settings.WriteSection(section(key), state.toBase64().toStdString());
          }};
}

void RequireBoth(const char* table, bool first, bool second) {
  if (first != second) FailWrongCall(std::string("هر دو تابع این جدول باید داده شوند: ") + table);
}

}  // namespace

OwnTables CopyTables(const goods_desktop_options& options, TextEncoding encoding) {
  OwnTables tables;
  tables.encoding = encoding;
  tables.connection = CopyOf(options.connection, "goods_desktop_connection");
  tables.rights = CopyOf(options.rights, "goods_desktop_rights");
  tables.documents = CopyOf(options.documents, "goods_desktop_documents");
  tables.settings = CopyOf(options.settings, "goods_desktop_settings");
  tables.messages = CopyOf(options.messages, "goods_desktop_messages");
  tables.waiting = CopyOf(options.waiting, "goods_desktop_waiting");
  tables.windows = CopyOf(options.windows, "goods_desktop_windows");
  RequireBoth("goods_desktop_connection", tables.connection.open != nullptr,
              tables.connection.execute != nullptr);
  RequireBoth("goods_desktop_waiting", tables.waiting.show != nullptr, tables.waiting.hide != nullptr);
  RequireBoth("goods_desktop_windows", tables.windows.show != nullptr, tables.windows.hide != nullptr);
  return tables;
}

OwnSettings::OwnSettings(const QString& folder, const OwnTables& tables)
    : DesktopSettings(folder), table_(tables.settings), encoding_(tables.encoding) {
  if (table_.load == nullptr) return;
  goods_desktop_record record = RecordOf(TSettings{});
  table_.load(table_.context, &record);
  TakeRecord(record, Settings());
}

void OwnSettings::SaveSettingItem(int softwarePart, int item, bool on, std::int64_t number,
                                  std::string_view text) {
  if (table_.save_item == nullptr) {
    DesktopSettings::SaveSettingItem(softwarePart, item, on, number, text);
    return;
  }
  const goods_desktop_record record = RecordOf(Settings());
  table_.save_item(table_.context, softwarePart, item, on ? 1 : 0, number, TextOut(text, encoding_).Get(),
                   &record);
}

std::optional<std::string> OwnSettings::Read(std::int32_t kind, std::string_view name) const {
  goods_desktop_text text = table_.read(table_.context, kind, TextOut(name, encoding_).Get());
  if (text == nullptr) return std::nullopt;
  return TextIn(text, encoding_);
}

bool OwnSettings::Write(std::int32_t kind, std::string_view name, std::string_view text) const {
  return table_.write(table_.context, kind, TextOut(name, encoding_).Get(), TextOut(text, encoding_).Get()) !=
         0;
}

std::string OwnSettings::ReadSection(std::string_view section) const {
  if (table_.read == nullptr) return DesktopSettings::ReadSection(section);
  return Read(GOODS_DESKTOP_SECTION, section).value_or(std::string());
}

void OwnSettings::WriteSection(std::string_view section, std::string_view text) {
  if (table_.write == nullptr) {
    DesktopSettings::WriteSection(section, text);
  } else {
    Write(GOODS_DESKTOP_SECTION, section, text);
  }
}

std::optional<std::string> OwnSettings::ReadSettingFile(std::string_view name) const {
  return table_.read == nullptr ? DesktopSettings::ReadSettingFile(name) : Read(GOODS_DESKTOP_LAYOUT, name);
}

bool OwnSettings::WriteSettingFile(std::string_view name, std::string_view text) {
  return table_.write == nullptr ? DesktopSettings::WriteSettingFile(name, text)
                                 : Write(GOODS_DESKTOP_LAYOUT, name, text);
}

OwnServices ServicesOf(const OwnTables& tables, OwnSettings& settings) {
  OwnServices own;
  own.rights = [table = tables.rights, encoding = tables.encoding](CompanyRights& standard) {
    return std::make_unique<OwnRights>(table, encoding, standard);
  };
  own.documents = DocumentsOf(tables);
  own.messages = MessagesOf(tables);
  own.waiting = WaitingOf(tables);
  own.windows = PlaceOf(tables);
  own.places = PlacesIn(settings);
  return own;
}

}  // namespace goods
