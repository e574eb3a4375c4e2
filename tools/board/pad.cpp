// A gamepad that a program presses: reads keys from standard input, "down,down,a" on a line, and presses them
// one after the other on a pad that every other program takes for a real one.
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <linux/uinput.h>
#include <sys/ioctl.h>
#include <unistd.h>

struct Key {
    const char* name;
    unsigned short type;
    unsigned short code;
    int pressed;
};

static const Key sKeys[] = {
    {"up", EV_ABS, ABS_HAT0Y, -1},   {"down", EV_ABS, ABS_HAT0Y, 1},    {"left", EV_ABS, ABS_HAT0X, -1},
    {"right", EV_ABS, ABS_HAT0X, 1}, {"a", EV_KEY, BTN_SOUTH, 1},       {"b", EV_KEY, BTN_EAST, 1},
    {"x", EV_KEY, BTN_WEST, 1},      {"y", EV_KEY, BTN_NORTH, 1},       {"l", EV_KEY, BTN_TL, 1},
    {"r", EV_KEY, BTN_TR, 1},        {"select", EV_KEY, BTN_SELECT, 1}, {"start", EV_KEY, BTN_START, 1},
    {"menu", EV_KEY, BTN_MODE, 1},
};

static constexpr useconds_t holdFor = 60000;
static constexpr useconds_t restFor = 100000;

/// Sticks and the directions, as a pad has them. The sticks stay in the middle.
static const uinput_abs_setup sAxes[] = {
    {ABS_X, {0, -32768, 32767, 16, 128, 0}},  {ABS_Y, {0, -32768, 32767, 16, 128, 0}},
    {ABS_RX, {0, -32768, 32767, 16, 128, 0}}, {ABS_RY, {0, -32768, 32767, 16, 128, 0}},
    {ABS_HAT0X, {0, -1, 1, 0, 0, 0}},         {ABS_HAT0Y, {0, -1, 1, 0, 0, 0}},
};

static bool plugIn(int pad) {
    bool done = ioctl(pad, UI_SET_EVBIT, EV_KEY) == 0 && ioctl(pad, UI_SET_EVBIT, EV_ABS) == 0;
    for (const Key& key : sKeys)
        if (key.type == EV_KEY)
            done = done && ioctl(pad, UI_SET_KEYBIT, key.code) == 0;
    for (const uinput_abs_setup& axis : sAxes)
        done = done && ioctl(pad, UI_ABS_SETUP, &axis) == 0;
    uinput_setup setup{};
    setup.id = {BUS_USB, 0x1209, 0x0001, 1}; // numbers that are free for anyone's tests
    strcpy(setup.name, "Pad of a program");
    return done && ioctl(pad, UI_DEV_SETUP, &setup) == 0 && ioctl(pad, UI_DEV_CREATE) == 0;
}

static bool send(int pad, const Key& key, int value) {
    input_event events[2]{};
    events[0].type = key.type;
    events[0].code = key.code;
    events[0].value = value;
    events[1].type = EV_SYN;
    events[1].code = SYN_REPORT;
    return write(pad, events, sizeof events) == sizeof events;
}

static bool press(int pad, const char* name) {
    for (const Key& key : sKeys)
        if (strcmp(key.name, name) == 0) {
            const bool sent = send(pad, key, key.pressed);
            usleep(holdFor);
            const bool let = send(pad, key, 0);
            usleep(restFor);
            return sent && let;
        }
    fprintf(stderr, "pad: no key '%s'\n", name);
    return true;
}

int main() {
    const int pad = open("/dev/uinput", O_WRONLY);
    if (pad < 0 || !plugIn(pad)) {
        perror("pad: /dev/uinput");
        return 1;
    }
    char line[256];
    while (fgets(line, sizeof line, stdin))
        for (char* name = strtok(line, ", \n"); name; name = strtok(nullptr, ", \n"))
            if (!press(pad, name)) {
                perror("pad");
                return 1;
            }
    return 0;
}
