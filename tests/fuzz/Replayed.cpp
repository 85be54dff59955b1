// The only source that is compiled once for each fuzzer.
#include "fuzz/Replayed.h"

const fuzz::Replayed fuzz::replayed{FUZZER, CORPUS, CHANGED_RUNS};
