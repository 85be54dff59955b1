/* ZelDebugDialog for every language that can call C: one function that takes a
 * request and gives its answer.
 *
 * Requests and answers are texts of JSON-RPC 2.0, the same as those that
 * `zeldebug serve` speaks over pipes; docs/protocol.md has all of them. A
 * server keeps what its client has open, boards and configurations, until it is
 * released.
 *
 * Threads: any thread may call anything here, also with the same server. A
 * request is done by the thread that brings it, before zdd_answer returns;
 * requests about one configuration take turns. A notification "$/cancelRequest"
 * from another thread makes a board that is being opened end with an error.
 *
 * Who releases what: the caller releases each server with zdd_server_release,
 * when no other thread uses it any more, and each answer with
 * zdd_answer_release. Texts that are given stay the caller's, and may go as
 * soon as the function returns.
 *
 * Errors: each function returns what became of it. A null pointer where none
 * may be is an error, never a crash. Nothing is thrown.
 *
 *   zdd_server *server = NULL;
 *   char *answer = NULL;
 *   if (zdd_server_create(&server) == ZDD_OK &&
 *       zdd_answer(server, request, strlen(request), &answer, NULL) == ZDD_OK)
 *     puts(answer);
 *   zdd_answer_release(answer);
 *   zdd_server_release(server);
 */
#ifndef ZELDEBUGDIALOG_H
#define ZELDEBUGDIALOG_H

#include <stddef.h>

#if defined(__GNUC__)
#define ZDD_API __attribute__((visibility("default")))
#else
#define ZDD_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* What became of a call. */
typedef enum zdd_status {
  ZDD_OK = 0,
  /* It was a notification, and has been done. */
  ZDD_NO_ANSWER = 1,
  /* An argument that may not be null is; nothing is done. */
  ZDD_NULL_POINTER = 2,
  /* Nothing is given; a request may have been done. */
  ZDD_NO_MEMORY = 3
} zdd_status;

/* What one client has open. */
typedef struct zdd_server zdd_server;

/* Makes a server. `*server` is null unless it returns ZDD_OK.
 * Returns ZDD_OK, ZDD_NULL_POINTER, ZDD_NO_MEMORY. */
ZDD_API zdd_status zdd_server_create(zdd_server **server);

/* Releases a server with all that is open in it; nothing is saved.
 * Returns ZDD_OK, ZDD_NULL_POINTER. */
ZDD_API zdd_status zdd_server_release(zdd_server *server);

/* Does what one request asks for.
 *
 * `request` has `length` bytes, without any at its end that says so. Whatever
 * they are, there is an answer: what is no request is answered with an error,
 * as JSON-RPC has it. `*answer` ends with a null byte, which is none of its
 * `*answer_length` bytes; it is null unless the function returns ZDD_OK.
 * `answer_length` may be null.
 * Returns ZDD_OK, ZDD_NO_ANSWER, ZDD_NULL_POINTER, ZDD_NO_MEMORY. */
ZDD_API zdd_status zdd_answer(zdd_server *server, const char *request,
                              size_t length, char **answer,
                              size_t *answer_length);

/* Releases an answer.
 * Returns ZDD_OK, ZDD_NULL_POINTER. */
ZDD_API zdd_status zdd_answer_release(char *answer);

/* The version of the library, "1.0.0". It is never null, and not released. */
ZDD_API const char *zdd_version(void);

#ifdef __cplusplus
}
#endif

#endif
