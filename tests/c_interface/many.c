/* A program that embeds the library and goes on for long: however many changes
 * it makes, it needs no more memory.
 *
 *   c_interface_many BOARD [CHANGES [keep]]
 *
 * A configuration keeps the steps that can be undone, so it is closed after
 * a few changes, and the next one opened. With `keep` no answer is released:
 * that has to be noticed. */
#define _POSIX_C_SOURCE 200809L /* sysconf */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include <zeldebugdialog.h>

static const long changes_of_one = 20;
static const long most_growth = 1024; /* KiB */

static zdd_server *server = NULL;
static int keeps = 0;

/* In KiB. */
static long resident_memory(void) {
  long whole = 0;
  long resident = 0;
  FILE *file = fopen("/proc/self/statm", "r");
  if (file == NULL || fscanf(file, "%ld %ld", &whole, &resident) != 2) {
    puts("nothing tells how much memory is in use");
    exit(2);
  }
  fclose(file);
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

/* Sends a request, and gives the number behind `"name":` in its answer. */
static long ask(const char *method, const char *params, const char *name) {
  static long last = 0;
  char request[4096];
  char *answer = NULL;
  const char *found = NULL;
  long number = 0;
  snprintf(request, sizeof request,
           "{\"jsonrpc\":\"2.0\",\"id\":%ld,\"method\":\"%s\",\"params\":{%s}}",
           ++last, method, params);
  if (zdd_answer(server, request, strlen(request), &answer, NULL) != ZDD_OK ||
      strstr(answer, "\"result\"") == NULL) {
    printf("%s\n%s\n", request, answer == NULL ? "no answer" : answer);
    exit(1);
  }
  found = name == NULL ? NULL : strstr(answer, name);
  if (found != NULL)
    number = strtol(found + strlen(name), NULL, 10);
  if (!keeps)
    zdd_answer_release(answer);
  return number;
}

/* One configuration with so many changes. */
static void work(long board, long changes) {
  char params[1024];
  long change = 0;
  long configuration = 0;
  snprintf(params, sizeof params, "\"board\":%ld,\"processor\":\"lumacore_0\"",
           board);
  configuration = ask("configuration/open", params, "\"configuration\":");
  for (change = 0; change < changes; ++change) {
    snprintf(params, sizeof params,
             "\"configuration\":%ld,\"values\":{\"debugDevice\":%ld,"
             "\"cable.cableType\":%d,\"chain\":[{\"devicenr\":%ld,"
             "\"partname\":\"pk9ab100\"}]}",
             configuration, change % 100 + 1, change % 2 == 0 ? 3 : 0,
             change % 5 + 1);
    ask("configuration/change", params, NULL);
  }
  snprintf(params, sizeof params, "\"configuration\":%ld", configuration);
  ask("configuration/undo", params, NULL);
  ask("configuration/state", params, NULL);
  ask("configuration/close", params, NULL);
}

int main(int count, char **arguments) {
  const long changes = count > 2 ? strtol(arguments[2], NULL, 10) : 400;
  char params[4096];
  long board = 0;
  long done = 0;
  long first = 0;
  long most = 0;
  if (count < 2 || changes < 10 * changes_of_one)
    return 2;
  keeps = count > 3 && strcmp(arguments[3], "keep") == 0;
  if (zdd_server_create(&server) != ZDD_OK)
    return 1;
  snprintf(params, sizeof params, "\"design\":\"%s\"", arguments[1]);
  board = ask("board/open", params, "\"board\":");
  while (done < changes) {
    work(board, changes_of_one);
    done += changes_of_one;
    /* What is kept for good is there after the first tenth. */
    if (done <= changes / 10)
      first = resident_memory();
    else if (resident_memory() > most)
      most = resident_memory();
  }
  zdd_server_release(server);
  printf("%ld changes: %ld KiB after the first %ld, at most %ld KiB since\n",
         done, first, changes / 10, most);
  if (most - first > most_growth) {
    puts("it grows");
    return 1;
  }
  return 0;
}
