// SPDX-License-Identifier: MIT
#pragma once

namespace vel {

// Refers to a callable without its type. Only for a parameter: the callable must outlive the call.
template <class Signature>
class FunctionRef;

// For a signature such as long(CallFrame&).
template <class Result, class... Arguments>
class FunctionRef<Result(Arguments...)> {
  public:
    template <class Callable>
    FunctionRef(const Callable& callable)  // NOLINT(google-explicit-constructor): made when passed
        : callable_(&callable), call_([](const void* object, Arguments... arguments) -> Result {
              return (*static_cast<const Callable*>(object))(arguments...);
          }) {}

    Result operator()(Arguments... arguments) const { return call_(callable_, arguments...); }

  private:
    const void* callable_;
    Result (*call_)(const void* object, Arguments... arguments);
};

}  // namespace vel
