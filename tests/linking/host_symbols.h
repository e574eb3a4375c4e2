#pragma once

/// The last value that the library stored for "dimtime" in the host's table.
extern int gDimTime;
