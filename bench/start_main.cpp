// A program that starts, writes a byte to the file handle 3 after its first frame, and ends. Built twice.
#include START_HEADER

#include <unistd.h>

int main(int, char**) {
    const bool told = START_FUNCTION() && write(3, "1", 1) == 1;
    _exit(told ? 0 : 1);
}
