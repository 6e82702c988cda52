#include "framework/referent.h"

#include <algorithm>

namespace vs::project_resave {

uint32_t objbase::add_referrer(referrer_pointer referrer) {
    referrers.push_back(referrer);
    return static_cast<uint32_t>(referrers.size());
}

void objbase::remove_referrer(referrer_pointer referrer) {
    const auto row = std::find(referrers.begin(), referrers.end(), referrer);
    if (row != referrers.end()) referrers.erase(row);
    if (closing) return;
    const bool kept = std::any_of(referrers.begin(), referrers.end(), [](const referrer_pointer& other) {
        return !other || call<&referrer_impl::keeps_alive>(other);
    });
    if (kept) return;
    closing = true;
    delete this;
}

void objbase::as_referent(referent_pointer& out) { out = pointer_to<referent_impl>(*this); }

objbase::~objbase() {
    closing = true;
    while (!referrers.empty()) {
        const referrer_pointer referrer = referrers.front();
        referrers.pop_front();
        call<&referrer_impl::on_referent_closed>(referrer);
    }
}

} // namespace vs::project_resave
