# What a fault in a device's software must not be good for: library, tool and programs get it all.
# The test library.FromOutside looks at what came out of it.

# Where the optimiser runs, unless the sanitizers look at the same calls.
set(velmor_fortified
  "$<AND:$<CONFIG:Release,RelWithDebInfo,MinSizeRel>,$<NOT:$<BOOL:${VELMOR_SANITIZE}>>>")
add_compile_options(
  -fstack-protector-strong
  "$<${velmor_fortified}:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
add_link_options(-Wl,-z,relro,-z,now -Wl,-z,noexecstack -Wl,-z,text)

# What nobody calls is left out.
add_compile_options(-ffunction-sections -fdata-sections)
add_link_options(-Wl,--gc-sections -Wl,--as-needed)
