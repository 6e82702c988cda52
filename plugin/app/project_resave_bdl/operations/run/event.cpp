#include "operations/run/event.h"

namespace vs::project_resave {

std::shared_ptr<void> event::connect(std::function<void()> observer) {
    auto kept = std::make_shared<std::function<void()>>(std::move(observer));
    observers_.push_back(kept);
    return kept;
}

void event::fire() {
    std::erase_if(observers_, [](const auto& observer) { return observer.expired(); });
    const auto snapshot = observers_;
    for (const auto& observer : snapshot)
        if (const auto kept = observer.lock()) (*kept)();
}

} // namespace vs::project_resave
