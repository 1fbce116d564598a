# The warnings under which everything is built, as errors, and the sanitizers where asked for.
add_library(velmor_warnings INTERFACE)
target_compile_options(velmor_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
if(VELMOR_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# A C program that uses the sanitized library must link the C++ part of the sanitizers' runtime.
function(velmor_c_program target)
  target_link_libraries(${target} PRIVATE velmor_warnings)
  if(VELMOR_SANITIZE)
    set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX)
  endif()
endfunction()
