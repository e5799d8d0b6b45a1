# The bundle tree that panel, companion and command line live in, the same on every system:
#
#   bin/Vantrelo Orvex.app/Contents/{Info.plist, MacOS/{Vantrelo Orvex, orvex, orvex-lv2},
#       PlugIns/VantreloOrvexFinalCutExtension.appex/Contents/{Info.plist, MacOS/…}}
#
# bin/<program> is a link into it, so that programs are found under their short names and still find
# their bundle from their own location.
set(ORVEX_APP_CONTENTS "${CMAKE_BINARY_DIR}/bin/Vantrelo Orvex.app/Contents")
set(ORVEX_APPEX_CONTENTS
    "${ORVEX_APP_CONTENTS}/PlugIns/VantreloOrvexFinalCutExtension.appex/Contents")

configure_file("${CMAKE_SOURCE_DIR}/cmake/App-Info.plist.in" "${ORVEX_APP_CONTENTS}/Info.plist" @ONLY)
configure_file("${CMAKE_SOURCE_DIR}/cmake/Extension-Info.plist.in" "${ORVEX_APPEX_CONTENTS}/Info.plist"
               @ONLY)

# Puts the program `target` into the bundle folder `contents` as `executable` and links it as bin/<link>.
function(orvex_bundle_program target contents executable link)
  set_target_properties(${target} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY "${contents}/MacOS"
    OUTPUT_NAME "${executable}")
  file(RELATIVE_PATH destination "${CMAKE_BINARY_DIR}/bin" "${contents}/MacOS/${executable}")
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E create_symlink "${destination}" "${CMAKE_BINARY_DIR}/bin/${link}"
    VERBATIM)
endfunction()
