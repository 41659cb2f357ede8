#include "company/system/program.h"

namespace goods {

void ProgramArguments::Point() {
  for (std::string& text : texts_) values_.push_back(text.data());
  values_.push_back(nullptr);
}

}  // namespace goods
