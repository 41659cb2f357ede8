/* The published headers are C headers. */
#include "goods_desktop.h"
#include "goods_transaction_qrt.h"

void goods_c_header_check(void);
void goods_c_header_check(void) {
  goods_char16 text[] = {0x06A9, 0};
  Open_Kardex(1, 0, text, text);
}
