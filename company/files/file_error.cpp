#include "company/files/file_error.h"

#include <cerrno>

namespace goods {

namespace {

std::string Sentence(FileProblem problem) {
  switch (problem) {
    case FileProblem::Missing:
      return "این فایل پیدا نشد";
    case FileProblem::NoFolder:
      return "پوشه این فایل پیدا نشد";
    case FileProblem::Exists:
      return "این فایل از پیش هست و نوشته نشد";
    case FileProblem::Folder:
      return "این مسیر یک پوشه است";
    case FileProblem::NotRegular:
      return "این مسیر یک فایل معمولی نیست";
    case FileProblem::ReadOnly:
      return "این فایل فقط خواندنی است و نوشته نشد";
    case FileProblem::Forbidden:
      return "این فایل از آن شرکت است و چیزی به جای آن نوشته نمی شود";
    case FileProblem::Database:
      return "این فایل یک پایگاه داده است و چیزی به جای آن نوشته نمی شود";
    case FileProblem::ForeignLink:
      return "این مسیر پیوندی است که کاربر دیگری گذاشته است و دنبال نشد";
    case FileProblem::InUse:
      return "برنامه دیگری همین حالا این فایل را می نویسد";
    case FileProblem::NoSpace:
      return "جای خالی دیسک برای نوشتن این فایل کافی نیست";
    case FileProblem::NoAccess:
      return "اجازه دسترسی به این فایل نیست";
    case FileProblem::TooLarge:
      return "این فایل بزرگتر از اندازه پذیرفتنی است";
    case FileProblem::Lost:
      return "فایل در میانه کار جابجا یا پاک شد و نوشته نشد";
    case FileProblem::Failed:
      break;
  }
  return "خواندن یا نوشتن این فایل ممکن نشد";
}

std::string Message(FileProblem problem, const std::string& path, int systemError) {
  std::string message = Sentence(problem) + ": " + path;
  if (problem == FileProblem::Failed && systemError != 0) {
    message += " (خطای شماره " + std::to_string(systemError) + " سیستم)";
  }
  return message;
}

}  // namespace

FileError::FileError(FileProblem problem, const std::string& path, int systemError)
    : std::runtime_error(Message(problem, path, systemError)), problem_(problem), systemError_(systemError) {}

FileError::~FileError() = default;

FileProblem ProblemOf(int systemError) {
  switch (systemError) {
    case ENOSPC:
#ifdef EDQUOT  // not every system has quotas
    case EDQUOT:
#endif
    case EFBIG:
      return FileProblem::NoSpace;
    case EACCES:
    case EPERM:
    case EROFS:
      return FileProblem::NoAccess;
    case ENOENT:
    case ENOTDIR:
      return FileProblem::NoFolder;
    case EEXIST:
      return FileProblem::Exists;
    case EISDIR:
      return FileProblem::Folder;
    case ETXTBSY:
    case EBUSY:
      return FileProblem::InUse;
    default:
      return FileProblem::Failed;
  }
}

}  // namespace goods
