#pragma once

#include <cstdlib>

/// How often a test that can last does its work: `usual`, or `whole` where KESTRO_LONG is in the environment,
/// as tools/endurance sets it.
inline int longRun(int usual, int whole) {
    return getenv("KESTRO_LONG") ? whole : usual;
}
