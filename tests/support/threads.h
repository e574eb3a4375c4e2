#pragma once

#include <string>

/// The number of threads of this process with this name.
int threadsNamed(const std::string& name);

/// Waits until there is such a thread, which takes its name itself just after its start; false when none
/// comes.
bool threadAppears(const std::string& name);

/// Waits until there is none, since the system forgets a thread only just after it was waited for; false
/// when one stays.
bool threadDisappears(const std::string& name);
