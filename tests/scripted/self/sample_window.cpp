#include "tests/scripted/self/sample_window.h"

#include <stdexcept>
#include <utility>

#include "tests/scripted/self/pages_window.h"

namespace goods {
namespace {

constexpr int kSearchMessage = 9035;
constexpr std::uint64_t kQuietTime = 400;

class TEarly_FRM : public TSample_FRM {
 public:
  TEarly_FRM(THost& host, Variant parameter) : TSample_FRM(host, 1, std::move(parameter), "") {
    host.Connection().Execute("Exec TooEarly");
  }
};

}  // namespace

TSample_FRM::TSample_FRM(THost& host, int formMode, Variant customParameter, std::string settingsName)
    : TBaseDock_FRM(host, "Sample_FRM", formMode, std::move(customParameter), std::move(settingsName)),
      query_(this, "Sample_QRY", host.Connection()),
      source_(this, "Sample_DS", &query_) {
  SetCaption("نمونه");
  Criteria_PNL.Foldable = true;
  for (TControl* control : {static_cast<TControl*>(&Search_EDT), static_cast<TControl*>(&Code_EDT),
                            static_cast<TControl*>(&All_CHK), static_cast<TControl*>(&Kind_CMB),
                            static_cast<TControl*>(&Good_SEF)}) {
    Criteria_PNL.Place(*control);
  }
  Place(Criteria_PNL);
  Place(Sample_GRD);
  for (TButton* button : {&Print_BTN, &Exit_BTN, &Disabled_BTN, &Message_BTN, &Execute_BTN, &Document_BTN,
                          &Another_BTN, &StayWaiting_BTN, &HideTwice_BTN, &Throw_BTN}) {
    Place(*button);
  }
  Good_SEF.SetEntityType(EntityType::Good);
  Kind_CMB.SetItems({{"  نام", 5, "5;نام;"}, {"  کد", 6, "6;کد;"}});
  Disabled_BTN.SetEnabled(false);
  Sample_GRD.SetDataSource(&source_);
  Sample_GRD.AddColumn("Name", "نام");
  Sample_GRD.AddColumn("Amount", "مبلغ").SetDisplayFormat("#,0.##;#,0.##-;0").SetFooter(FooterKind::Sum);
  SetCommonControls(Sample_GRD, Print_BTN, Exit_BTN);
  Wire();
}

void TSample_FRM::Wire() {
  Sample_GRD.OnSortChanged = [this] { query_.SetSort(Sample_GRD.GetSort()); };
  Search_EDT.OnChange = [this] {
    lastKey_ = Host().Windows().TickCount();
    if (!waiting_) Host().Windows().PostMessage(*this, kSearchMessage);
  };
  Message_BTN.OnClick = [this] { Host().Messages().MsgRequiredField("کالا"); };
  Execute_BTN.OnClick = [this] { Host().Connection().Execute("Exec Clicked"); };
  Document_BTN.OnClick = [this] { Host().Documents().Call_SaleInvoice(55, 1); };
  Another_BTN.OnClick = [this] { TSample_FRM(Host(), 1, Variant(), "").ShowModal(); };
  StayWaiting_BTN.OnClick = [this] { Host().Waiting().ShowWaitting(this, "صبر"); };
  HideTwice_BTN.OnClick = [this] { Host().Waiting().HideWaitting(this, 0); };
  Throw_BTN.OnClick = [] { throw std::runtime_error("broken"); };
}

void TSample_FRM::FormShow() {
  query_.SetSQL("Exec Sample");
  query_.Open();
}

void TSample_FRM::WindowMessage(int code) {
  if (code != kSearchMessage || waiting_) return;
  waiting_ = true;
  IWindows& windows = Host().Windows();
  windows.ProcessMessages([&] { return windows.TickCount() >= lastKey_ + kQuietTime; });
  waiting_ = false;
  query_.SetSQL("Exec Sample @Search='" + Search_EDT.Text() + "'");
  query_.Open();
}

CaseEnvironment SampleEnvironment() {
  static THost* attached = nullptr;
  CaseEnvironment environment;
  environment.attach = [](THost& host) {
    attached = &host;
    return true;
  };
  environment.detach = [] { return std::exchange(attached, nullptr) != nullptr; };
  environment.exports["Open_Sample"] = [](const std::vector<Word>& words) {
    if (!words.empty()) throw std::invalid_argument("too many arguments");
    TSample_FRM(*attached, 1, Variant(), "").ShowModal();
  };
  environment.windows["TSample_FRM"] = [](THost& host, int mode,
                                          Variant parameter) -> std::unique_ptr<TForm> {
    return std::make_unique<TSample_FRM>(host, mode, std::move(parameter), "");
  };
  environment.windows["TEarly_FRM"] = [](THost& host, int /*mode*/,
                                         Variant parameter) -> std::unique_ptr<TForm> {
    return std::make_unique<TEarly_FRM>(host, std::move(parameter));
  };
  environment.windows["TPages_FRM"] = [](THost& host, int mode, Variant parameter) -> std::unique_ptr<TForm> {
    return std::make_unique<TPages_FRM>(host, mode, std::move(parameter), "");
  };
  return environment;
}

}  // namespace goods
