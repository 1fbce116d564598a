// SPDX-License-Identifier: MIT
#pragma once

// The one session of the process: all state of the library.
class Velmor {
  public:
    // The session, made on first use and destroyed when the library is unloaded.
    static Velmor* getVelmor();

    Velmor(const Velmor&) = delete;
    Velmor& operator=(const Velmor&) = delete;

    bool traceSwitch = false;  // whether calls are written to the trace log
    int traceDepth = 0;        // framed calls under way; kept by CallFrame

  private:
    Velmor() = default;
    ~Velmor() = default;
};
