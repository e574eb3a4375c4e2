#include "text/pinyin.h"

#include "core/load_order.h"

std::map<unsigned int, const char*> gPinyinMap KESTRO_LOADED_PINYIN_MAP;
