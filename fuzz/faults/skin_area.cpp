#include "fuzz/faults/memory_areas.h"
#include "fuzz/faults/skin_files.h"
#include "kestro.h"

namespace {

void prepareSkin() {
    fuzz::prepareSkinFiles();
    uninit_shared_skin();
}

void useSkin() {
    init_shared_skin();
    uninit_shared_skin();
    init_shared_skin();
}

bool skinIsThere() {
    init_shared_skin();
    const bool complete = gListFontTxt && gPopupFontBtn && gIconVideo && gBackgroundFloat;
    uninit_shared_skin();
    return complete;
}

} // namespace

fuzz::MemoryArea fuzz::skinArea() {
    return {"skin", prepareSkin, useSkin, skinIsThere, false};
}
