// An event without arguments. Observers are held weakly: one that died is passed over.
#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace vs::project_resave {

class event {
public:
    // The observer is told as long as the caller keeps what this answers.
    [[nodiscard]] std::shared_ptr<void> connect(std::function<void()> observer);
    // Tells those that are connected now; one that connects or leaves meanwhile does no harm.
    void fire();
    void disconnect_all() { observers_.clear(); }

private:
    std::vector<std::weak_ptr<std::function<void()>>> observers_;
};

} // namespace vs::project_resave
