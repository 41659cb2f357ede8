/* The goods-movement reports: what the library Goods_Transaction_QRT exports, and how a host attaches.
 *
 * Everything is called on the user-interface thread. A text is UTF-16, ends with a zero, belongs to the
 * caller and need live only as long as the call; a null pointer is the empty text. No function returns before
 * the window that it shows is closed. An error never leaves a function: it is handed to the attached host's
 * message service. */
#ifndef GOODS_TRANSACTION_QRT_H
#define GOODS_TRANSACTION_QRT_H

#include <stdint.h>

/* GOODS_HOST_VERSION: the version of the host packages that the including program is compiled with. */
#include "goods_host_version.h"

#ifdef __cplusplus
extern "C" {
typedef char16_t goods_char16;
#else
typedef uint_least16_t goods_char16;
#endif

/* GOODS_BUILDS_REPORTS: defined while the library itself is built, by its own build alone. */
#if defined(_WIN32) && defined(GOODS_BUILDS_REPORTS)
#define GOODS_EXPORT __declspec(dllexport)
#elif defined(_WIN32)
#define GOODS_EXPORT __declspec(dllimport)
#elif defined(__GNUC__)
#define GOODS_EXPORT __attribute__((visibility("default")))
#else
#define GOODS_EXPORT
#endif

/* A host: the address of an object of the C++ class goods::THost (host/services/host.h). */
struct goods_host;

/* Attaches a host. version must be GOODS_HOST_VERSION; host must live until Goods_DetachHost. Returns 1 when
 * the host is attached, 0 when the version is another one, host is null, or a host is attached already. Shows
 * no window and runs no statement. */
GOODS_EXPORT int32_t Goods_AttachHost(int32_t version, struct goods_host* host);

/* Why the last Goods_AttachHost returned 0: a sentence for the user, in UTF-8; the empty text after one that
 * returned 1, and before any. The library's; valid until the next Goods_AttachHost. */
GOODS_EXPORT const char* Goods_AttachProblem(void);

/* Frees the kept windows and lets the host go. Returns 1; or 0, and nothing changes, when no host is attached
 * or a report is being shown. Without a host every Open_ function does nothing. */
GOODS_EXPORT int32_t Goods_DetachHost(void);

/* The stock card, the good chosen by the user. Needs permission 6 on software part 509. */
GOODS_EXPORT void Open_GoodKardex(void);

/* The stock card of one good; asks no permission. good: its code, 0 for none. store: 0 for every store. from,
 * to: Jalali dates "yyyy/mm/dd"; an empty from is no date range. */
GOODS_EXPORT void Open_Kardex(int32_t good, int32_t store, const goods_char16* from, const goods_char16* to);

/* The search among stock-card rows of all goods. Needs permission 6 on software part 510. */
GOODS_EXPORT void Open_KardexSearch(void);

/* The rows that drive a good's stock in a store below zero. mode: "1"; with any other text the search of
 * Open_KardexSearch. first, second: the values of the procedure srKardex_Negative, "0" for not given; a first
 * one without a second is ignored. Needs permission 6 on software part 510. */
GOODS_EXPORT void Open_KardexNegativ(const goods_char16* mode, const goods_char16* first,
                                     const goods_char16* second);

/* The goods with their turnover and stock: softwarePart 501 in quantity, 502 in money; another part asks for
 * the right and then does nothing. Needs permission 6 on that software part. */
GOODS_EXPORT void Open_GarKala(int32_t softwarePart);

/* Open_GarKala with 501, and with 502, after asking for the same permission themselves. */
GOODS_EXPORT void Open_GoodAmountAsset(void);
GOODS_EXPORT void Open_GoodCashAsset(void);

/* What came in and went out of each good, by operation, in money and in quantity. Needs permission 6 on
 * software part 528. */
GOODS_EXPORT void Open_GoodTrans_Overall(void);

/* The stock of each good in every store, side by side. Needs permission 6 on software part 531. */
GOODS_EXPORT void Open_GoodsAsset_Store(void);

/* The stock of goods at each combination of their detail values, the criteria chosen by the user. Needs
 * permission 6 on software part 513. Called from inside its own window, it only tells the user so. */
GOODS_EXPORT void Open_DetailTransactions(void);

/* The same with criteria given; asks no permission. good: its code, 0 for none. A flag other than 0 says that
 * the values behind it are given: a store's code; Jalali dates "yyyy/mm/dd"; tag codes between commas
 * (",3,7,"); a category's code. */
GOODS_EXPORT void Open_GoodDetailTransactions(int32_t good, uint8_t storeGiven, int32_t store,
                                              uint8_t datesGiven, const goods_char16* from,
                                              const goods_char16* to, uint8_t tagsGiven,
                                              const goods_char16* tags, uint8_t categoryGiven,
                                              const goods_char16* category);

/* The search among the detail movements of all goods. Needs permission 6 on software part 513. Called from
 * inside its own window, it only tells the user so. */
GOODS_EXPORT void Open_SearchInDetailTransactions(void);

/* The goods whose stock on the stock card differs from the stock of their details. Needs permission 6 on
 * software part 513. Called from inside its own window, it only tells the user so. */
GOODS_EXPORT void Open_DetailKardexAsset_Dismatch(void);

/* Kept for hosts that call it; does nothing. */
GOODS_EXPORT void Open_StoreExistance(void);

#ifdef __cplusplus
}
#endif

#endif
