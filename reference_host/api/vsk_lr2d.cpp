#include "host/vsk_lr2d.h"

#include "host/vsk_lr.h"
#include "reference_host/api/calls.h"

using namespace vestra::api;

vs_lr* vs_lr2d_safe_downcast(vs_lr* layer) {
    return layer && to_model(layer)->kind == vestra::dimension::flat ? layer : nullptr;
}

const char* vs_lr2d_get_lr_type(vs_lr* layer) { return vs_lr_get_lr_type(layer); }

void vs_lr2d_get_wcaption(vs_lr* layer, vs_string_adp* out) { vs_lr_get_wcaption(layer, out); }

void vs_lr2d_get_wfilename(vs_lr* layer, vs_string_adp* out) { vs_lr_get_wfilename(layer, out); }
