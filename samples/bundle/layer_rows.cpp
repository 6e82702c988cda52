// Reads the rows through the host's functions, which accept null everywhere; so missing rows need no checks.
#include "layer_rows.h"

#include "framework/border/string_adapter.h"
#include "host/vsk_lr.h"

namespace sample {

vs_tuple* rows_of(vs_lr* layer, const char* key) { return any_get_tuple(vs_lr_get_extra(layer, key)); }

wide_string text_at(vs_tuple* row, uint32_t place) {
    return vs::project_resave::host_string(&any_get_wstring, tuple_get_element(row, place));
}

} // namespace sample
