#pragma once

/// Marks a declaration as part of the library's public interface. Everything without it stays hidden
/// inside libkestro.so.
#define KESTRO_API __attribute__((visibility("default")))

/// Hides a private member of a class that is exported as a whole.
#define KESTRO_HIDDEN __attribute__((visibility("hidden")))

/// Marks a printf-like function, so that the compiler checks its arguments against the format.
/// `text` and `first` are the positions, from 1, of the format and of the first argument.
#define KESTRO_PRINTF(text, first) __attribute__((format(printf, text, first)))
