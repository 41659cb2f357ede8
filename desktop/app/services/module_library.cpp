#include "desktop/app/services/module_library.h"

#include <filesystem>
#include <limits>

#include "company/files/file_path.h"
#include "company/system/library.h"
#include "goods_reports.h"
#include "goods_transaction_qrt.h"
#include "host/core/text.h"
#include "host/services/host.h"

namespace goods {
namespace {

constexpr const char* kFileName = GOODS_LIBRARY_FILE;

template <typename Function>
Function* As(void* symbol) {
  return reinterpret_cast<Function*>(symbol);
}

std::int32_t Narrow(std::int64_t code) {
  if (code < std::numeric_limits<std::int32_t>::min() || code > std::numeric_limits<std::int32_t>::max()) {
    throw ModuleError("این کد برای گزارش بزرگ است: " + std::to_string(code));
  }
  return static_cast<std::int32_t>(code);
}

}  // namespace

ModuleError::~ModuleError() = default;

std::vector<std::string> ModuleLibrary::SearchPaths(const std::string& programFolder) {
  const std::filesystem::path folder = PathOf(programFolder);
  return {(folder / kFileName).string(), (folder / "lib" / kFileName).string(),
          (folder / ".." / "lib" / kFileName).lexically_normal().string(),
          (folder / GOODS_LIBRARY_FOLDER / kFileName).lexically_normal().string()};
}

std::string ModuleLibrary::Find(const std::string& given, const std::string& programFolder) {
  if (!given.empty()) return given;
  for (const std::string& path : SearchPaths(programFolder)) {
    std::error_code ignored;
    if (std::filesystem::exists(PathOf(path), ignored)) return path;
  }
  throw ModuleError(std::string("کتابخانه گزارش‌ها پیدا نشد: ") + kFileName +
                    "\nجای آن را با گزینه --module بدهید.");
}

ModuleLibrary::ModuleLibrary(const std::string& path) : path_(path) {
  // A bare name would be looked for in the system's folders instead of here.
  const std::string file = std::filesystem::absolute(PathOf(path)).string();
  std::error_code ignored;
  if (!std::filesystem::exists(PathOf(file), ignored))
    throw ModuleError("کتابخانه گزارش‌ها پیدا نشد: " + path);
  std::string reason;
  handle_ = OpenLibrary(file, reason);
  if (handle_ == nullptr) {
    throw ModuleError("کتابخانه گزارش‌ها بارگذاری نشد: " + path + "\n" + reason);
  }
  if (!Has("Goods_AttachHost") || !Has("Goods_DetachHost")) {
    CloseLibrary(handle_);
    throw ModuleError("این پرونده کتابخانه گزارش‌ها نیست: " + path);
  }
}

ModuleLibrary::~ModuleLibrary() {
  // A library that still shows a window must stay where it is.
  if (!Detach()) return;
  CloseLibrary(handle_);
}

void* ModuleLibrary::Find(const char* exportName) const { return FindInLibrary(handle_, exportName); }

void* ModuleLibrary::Require(const char* exportName) const {
  void* symbol = Find(exportName);
  if (symbol == nullptr)
    throw ModuleError(std::string("این گزارش در کتابخانه گزارش‌ها نیست: ") +
                      exportName);
  return symbol;
}

void ModuleLibrary::Attach(THost& host) {
  auto* attach = As<decltype(Goods_AttachHost)>(Require("Goods_AttachHost"));
  if (attach(GOODS_HOST_VERSION, reinterpret_cast<goods_host*>(&host)) != 1) {
    std::string problem =
        "کتابخانه گزارش‌ها با این برنامه همخوان نیست: " + path_;
    if (Has("Goods_AttachProblem")) {
      problem += "\n";
      problem += As<decltype(Goods_AttachProblem)>(Require("Goods_AttachProblem"))();
    }
    throw ModuleError(problem);
  }
  attached_ = true;
}

bool ModuleLibrary::Detach() {
  if (!attached_) return true;
  if (As<decltype(Goods_DetachHost)>(Require("Goods_DetachHost"))() != 1) return false;
  attached_ = false;
  return true;
}

void ModuleLibrary::Call(const char* exportName) { As<void()>(Require(exportName))(); }

void ModuleLibrary::Open(const ReportDescription& report) {
  if (report.id == ReportId::NegativeCard) {
    OpenKardexNegativ("1", "0", "0");  // the procedure's two values are not given: all dates
  } else {
    Call(report.exportName == nullptr ? "" : report.exportName);
  }
}

void ModuleLibrary::OpenKardex(std::int64_t good, std::int64_t store, std::string_view from,
                               std::string_view to) {
  auto* open = As<decltype(Open_Kardex)>(Require("Open_Kardex"));
  open(Narrow(good), Narrow(store), ToUtf16(from).c_str(), ToUtf16(to).c_str());
}

void ModuleLibrary::OpenGoodDetailTransactions(std::int64_t good, bool storeGiven, std::int64_t store,
                                               bool datesGiven, std::string_view from, std::string_view to,
                                               bool tagsGiven, std::string_view tags, bool categoryGiven,
                                               std::string_view category) {
  // A truth value is a byte, and any but 0 is true.
  using Export = void(std::int32_t, std::uint8_t, std::int32_t, std::uint8_t, const char16_t*,
                      const char16_t*, std::uint8_t, const char16_t*, std::uint8_t, const char16_t*);
  auto* open = As<Export>(Require(Describe(ReportId::StockByDetails).callerExport));
  open(Narrow(good), storeGiven ? 1 : 0, Narrow(store), datesGiven ? 1 : 0, ToUtf16(from).c_str(),
       ToUtf16(to).c_str(), tagsGiven ? 1 : 0, ToUtf16(tags).c_str(), categoryGiven ? 1 : 0,
       ToUtf16(category).c_str());
}

void ModuleLibrary::OpenGarKala(int softwarePart) {
  As<decltype(Open_GarKala)>(Require("Open_GarKala"))(softwarePart);
}

void ModuleLibrary::OpenKardexNegativ(std::string_view mode, std::string_view first,
                                      std::string_view second) {
  auto* open = As<decltype(Open_KardexNegativ)>(Require("Open_KardexNegativ"));
  open(ToUtf16(mode).c_str(), ToUtf16(first).c_str(), ToUtf16(second).c_str());
}

}  // namespace goods
