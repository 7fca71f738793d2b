#include "app/window/way_back.h"

#include "gui/toolkit.h"

void WayBack::Post(std::function<void()> call) {
    const std::scoped_lock lock(mutex);
    if (!toolkit)
        return;
    toolkit->Post([self = shared_from_this(), call = std::move(call)] {
        if (self->toolkit) // which no other thread changes
            call();
    });
}

void WayBack::Shut() {
    const std::scoped_lock lock(mutex);
    toolkit = nullptr;
}
