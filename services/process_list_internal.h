#pragma once

namespace kestro {

/// Looks once through the running processes for two names, neither of them null. Returns 0 if there is a
/// process of the first name, 1 if there is only one of the second, -1 if there is neither; what counts is
/// as for check_process_exist. A list that cannot be read is logged once for each name.
int firstRunning(const char* first, const char* second);

} // namespace kestro
