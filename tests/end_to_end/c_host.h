/* The scripted host behind C functions. */
#ifndef C_HOST_H
#define C_HOST_H

#ifdef __cplusplus
extern "C" {
#endif

struct goods_host;

/* One host for the program's life; every window that opens is closed at once. */
struct goods_host* c_host(void);
/* Windows shown, and statements sent, so far. */
int c_host_windows(void);
int c_host_statements(void);
/* The text of the last statement; valid until the next one. */
const char* c_host_last_statement(void);
/* Errors shown so far. */
int c_host_errors(void);
/* From now on, every statement fails. */
void c_host_lose_connection(void);

#ifdef __cplusplus
}
#endif

#endif
