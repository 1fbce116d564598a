# Flags that make memory errors harder to exploit, for library, tool and all programs. The test
# library.FromOutside checks the built library.

# Fortified calls need the optimiser. The sanitizers check the same calls themselves.
set(velmor_fortified
  "$<AND:$<CONFIG:Release,RelWithDebInfo,MinSizeRel>,$<NOT:$<BOOL:${VELMOR_SANITIZE}>>>")
add_compile_options(
  -fstack-protector-strong
  "$<${velmor_fortified}:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
add_link_options(-Wl,-z,relro,-z,now -Wl,-z,noexecstack -Wl,-z,text)

# Leaves out code that nothing calls.
add_compile_options(-ffunction-sections -fdata-sections)
add_link_options(-Wl,--gc-sections -Wl,--as-needed)
