#pragma once

/// How many signals the process has sent to conditions of SDL's so far, each counted before it is sent. Any
/// thread.
unsigned sentSignals();
