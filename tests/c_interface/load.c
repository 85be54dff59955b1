/* The library loaded while the program runs: it is linked with nothing of it,
 * and shows no more than its functions. */
#include <dlfcn.h>
#include <stdio.h>
#include <string.h>

typedef int (*create_function)(void **);
typedef int (*release_function)(void *);
typedef int (*answer_function)(void *, const char *, size_t, char **, size_t *);

/* A pointer to data becomes one to a function, as POSIX has it. */
static void *function(void *library, const char *name) {
  void *found = dlsym(library, name);
  if (found == NULL)
    printf("%s: %s\n", name, dlerror());
  return found;
}

int main(int count, char **arguments) {
  static const char request[] =
      "{\"jsonrpc\":\"2.0\",\"id\":1,\"method\":\"settings\"}";
  create_function create = NULL;
  release_function release = NULL;
  release_function release_answer = NULL;
  answer_function ask = NULL;
  void *server = NULL;
  char *answer = NULL;
  int round = 0;
  if (count != 2)
    return 2;
  for (round = 0; round < 2; ++round) {
    void *library = dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
    if (library == NULL) {
      puts(dlerror());
      return 1;
    }
    *(void **)&create = function(library, "zdd_server_create");
    *(void **)&release = function(library, "zdd_server_release");
    *(void **)&release_answer = function(library, "zdd_answer_release");
    *(void **)&ask = function(library, "zdd_answer");
    if (create == NULL || release == NULL || release_answer == NULL ||
        ask == NULL)
      return 1;
    if (create(&server) != 0 ||
        ask(server, request, strlen(request), &answer, NULL) != 0 ||
        strstr(answer, "\"cable.frequency\"") == NULL)
      return 1;
    if (release_answer(answer) != 0 || release(server) != 0)
      return 1;
    if (dlclose(library) != 0)
      return 1;
  }
  puts("loaded, asked and unloaded");
  return 0;
}
