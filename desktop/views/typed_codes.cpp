#include "desktop/views/typed_codes.h"

namespace goods {

ITypedCodes::~ITypedCodes() = default;

}  // namespace goods
