// A host that is linked with the library.
//
//     linked_host TO-THE-HOST TO-CJSON        (each "ours" or "theirs")
#include "linking/lookup_check.h"
#include "system/json_lookup.h"
#include "system/system_state.h"

int main(int, char** argv) {
    return checkLookup({cJSON_GetObjectItem, loadSystemState, saveOneItemInSystemState}, {argv[1], argv[2]});
}
