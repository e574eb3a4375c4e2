#pragma once

#include "core/export.h"

#include <map>

/// The reading of Chinese characters: pinyin syllable with tone digit by code point. Empty at load.
extern KESTRO_API std::map<unsigned int, const char*> gPinyinMap;
