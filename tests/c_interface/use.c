/* The C interface as a program in C uses it: every function, every result. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <zeldebugdialog.h>

static int failed = 0;

static void expect(int holds, const char *what) {
  if (!holds) {
    printf("does not hold: %s\n", what);
    failed = 1;
  }
}

static char *answer_to(zdd_server *server, const char *request) {
  char *answer = NULL;
  size_t length = 0;
  const zdd_status status =
      zdd_answer(server, request, strlen(request), &answer, &length);
  expect(status == ZDD_OK, request);
  expect(answer != NULL && strlen(answer) == length,
         "an answer ends with null");
  return answer;
}

static void expect_answer(zdd_server *server, const char *request,
                          const char *part) {
  char *answer = answer_to(server, request);
  if (answer == NULL)
    return;
  expect(strstr(answer, part) != NULL, answer);
  expect(zdd_answer_release(answer) == ZDD_OK, "an answer is released");
}

static void use_null_pointers(zdd_server *server) {
  static const char request[] = "{}";
  char unused = 0;
  char *answer = &unused;
  size_t length = 1;
  expect(zdd_server_create(NULL) == ZDD_NULL_POINTER, "create: null");
  expect(zdd_server_release(NULL) == ZDD_NULL_POINTER, "release: null");
  expect(zdd_answer_release(NULL) == ZDD_NULL_POINTER, "release: no answer");
  expect(zdd_answer(NULL, request, 2, &answer, &length) == ZDD_NULL_POINTER,
         "answer: no server");
  expect(answer == NULL && length == 0, "answer: nothing is given");
  answer = &unused;
  expect(zdd_answer(server, NULL, 0, &answer, NULL) == ZDD_NULL_POINTER,
         "answer: no request");
  expect(answer == NULL, "answer: nothing is given without a length");
  expect(zdd_answer(server, request, 2, NULL, &length) == ZDD_NULL_POINTER,
         "answer: no place for it");
}

int main(int count, char **arguments) {
  zdd_server *server = NULL;
  zdd_server *other = NULL;
  char request[4096];
  char *answer = NULL;
  size_t length = 1;
  if (count != 2)
    return 2;
  expect(strcmp(zdd_version(), ZELDEBUGDIALOG_VERSION) == 0, "the version");
  expect(zdd_server_create(&server) == ZDD_OK && server != NULL, "a server");
  expect(zdd_server_create(&other) == ZDD_OK && other != server, "another");
  if (server == NULL || other == NULL)
    return 1;
  use_null_pointers(server);

  expect_answer(server,
                "{\"jsonrpc\":\"2.0\",\"id\":1,\"method\":\"initialize\"}",
                "\"name\":\"zeldebug\"");
  expect_answer(server, "", "-32700");
  snprintf(request, sizeof request,
           "{\"jsonrpc\":\"2.0\",\"id\":2,\"method\":\"board/open\","
           "\"params\":{\"design\":\"%s\"}}",
           arguments[1]);
  expect_answer(server, request, "\"board\":1");
  expect_answer(server,
                "{\"jsonrpc\":\"2.0\",\"id\":3,\"method\":\"configuration/"
                "open\",\"params\":{\"board\":1,\"processor\":\"lumacore_0\"}}",
                "connect lc hdu -debugdevice cpunr 1");
  /* Each server has its own. */
  expect_answer(other,
                "{\"jsonrpc\":\"2.0\",\"id\":3,\"method\":\"board/close\","
                "\"params\":{\"board\":1}}",
                "-32602");

  strcpy(request, "{\"jsonrpc\":\"2.0\",\"method\":\"initialize\"}");
  expect(zdd_answer(server, request, strlen(request), &answer, &length) ==
             ZDD_NO_ANSWER,
         "a notification");
  expect(answer == NULL && length == 0, "a notification has no answer");
  /* The length counts, not what looks like an end. */
  expect(zdd_answer(server, "{}\0{}", 5, &answer, NULL) == ZDD_OK &&
             answer != NULL && strstr(answer, "-32700") != NULL,
         "a null byte is no end");
  expect(zdd_answer_release(answer) == ZDD_OK, "an answer is released");

  expect(zdd_server_release(server) == ZDD_OK, "a server is released");
  expect(zdd_server_release(other) == ZDD_OK, "the other is released");
  puts(failed ? "failed" : "all of it holds");
  return failed;
}
