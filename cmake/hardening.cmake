# What makes a mistake in the library or the tool harder to exploit, and the library small. The test
# library.Exports looks at the built file.
add_compile_options(-fstack-protector-strong -ffunction-sections -fdata-sections)
add_link_options(-Wl,-z,relro,-z,now,-z,noexecstack -Wl,--gc-sections -Wl,--as-needed)
if(NOT VELMOR_SANITIZE)
  # The sanitizers watch the same calls themselves; without optimisation there is nothing to fortify.
  add_compile_options($<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE>
    $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
endif()
