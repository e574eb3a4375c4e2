// Compiled for what the compiler says about the classes in its debug information; never linked.
#include <kestro.h>
