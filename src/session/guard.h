// SPDX-License-Identifier: MIT
#pragma once

#include <type_traits>

// The one place where exceptions end. Runs `body(context)`; false when it threw.
bool RunGuarded(void (*body)(void* context), void* context);

// Runs a callable that takes no arguments; false when it threw.
template <class Body>
bool Guarded(Body&& body) {
    using Callable = std::remove_reference_t<Body>;
    return RunGuarded([](void* context) { (*static_cast<Callable*>(context))(); }, &body);
}
