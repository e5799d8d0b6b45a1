# The layers of the program and the proof that their arrows only point down.
#
#   orvex_layer(<folder> [CORE] [DEPENDS <folder>...] [LINK <target>...] SOURCES <file>...)
#
# makes the static library orvex_<folder> of src/<folder>. A source in it may include headers of its
# own folder and of the folders it (transitively) depends on, by their path below src/, and of
# nothing else of ours. A CORE layer may use Qt Core and no other Qt module. Both rules are checked:
# the links when the project is configured, the includes whenever it is built.

function(orvex_layer_target folder out)
  string(REPLACE "/" "_" name "${folder}")
  set(${out} "orvex_${name}" PARENT_SCOPE)
endfunction()

# Registers the rules of a target whose library somebody else made (a QML module).
function(orvex_layer_rules folder)
  cmake_parse_arguments(L "CORE" "" "DEPENDS;LINK" ${ARGN})
  orvex_layer_target(${folder} target)
  target_include_directories(${target} PUBLIC "${CMAKE_SOURCE_DIR}/src")
  target_link_libraries(${target} PRIVATE orvex_compiler)
  target_link_libraries(${target} PUBLIC ${L_LINK})
  foreach(dependency IN LISTS L_DEPENDS)
    orvex_layer_target(${dependency} dependency_target)
    target_link_libraries(${target} PUBLIC ${dependency_target})
  endforeach()
  set_property(GLOBAL APPEND PROPERTY ORVEX_LAYERS ${folder})
  set_property(GLOBAL PROPERTY ORVEX_DEPENDS_${folder} "${L_DEPENDS}")
  set_property(GLOBAL PROPERTY ORVEX_CORE_${folder} "${L_CORE}")
endfunction()

function(orvex_layer folder)
  cmake_parse_arguments(L "CORE" "" "DEPENDS;LINK;SOURCES" ${ARGN})
  orvex_layer_target(${folder} target)
  add_library(${target} STATIC ${L_SOURCES})
  # Lets a QML module name the types of this layer without the layer knowing of QML.
  qt_extract_metatypes(${target})
  set(core "")
  if(L_CORE)
    set(core CORE)
  endif()
  orvex_layer_rules(${folder} ${core} DEPENDS ${L_DEPENDS} LINK ${L_LINK})
endfunction()

# All folders that `folder` depends on, directly or not, itself included.
function(orvex_layer_closure folder out)
  set(closure ${folder})
  get_property(direct GLOBAL PROPERTY ORVEX_DEPENDS_${folder})
  foreach(dependency IN LISTS direct)
    orvex_layer_closure(${dependency} below)
    list(APPEND closure ${below})
  endforeach()
  list(REMOVE_DUPLICATES closure)
  set(${out} "${closure}" PARENT_SCOPE)
endfunction()

function(orvex_check_core_links target)
  get_target_property(libraries ${target} LINK_LIBRARIES)
  foreach(library IN LISTS libraries)
    if(library MATCHES "^Qt6?::" AND NOT library MATCHES "^Qt6?::Core$")
      message(FATAL_ERROR "${target} is a core layer and must not link ${library}")
    endif()
  endforeach()
endfunction()

function(orvex_check_layers)
  get_property(layers GLOBAL PROPERTY ORVEX_LAYERS)
  set(commands "")
  foreach(folder IN LISTS layers)
    orvex_layer_closure(${folder} closure)
    get_property(core GLOBAL PROPERTY ORVEX_CORE_${folder})
    if(core)
      foreach(dependency IN LISTS closure)
        get_property(core_below GLOBAL PROPERTY ORVEX_CORE_${dependency})
        if(NOT core_below)
          message(FATAL_ERROR "${folder} is a core layer and must not depend on ${dependency}")
        endif()
      endforeach()
      orvex_layer_target(${folder} target)
      orvex_check_core_links(${target})
    endif()
    string(REPLACE ";" "," allowed "${closure}")
    string(REPLACE ";" "," known "${layers}")
    list(APPEND commands COMMAND ${CMAKE_COMMAND} -DROOT=${CMAKE_SOURCE_DIR}/src -DFOLDER=${folder}
         -DALLOWED=${allowed} -DLAYERS=${known} -DCORE=${core}
         -P ${CMAKE_SOURCE_DIR}/cmake/CheckIncludes.cmake)
  endforeach()
  add_custom_target(orvex_includes ALL ${commands} COMMENT "Checking that includes point down" VERBATIM)
endfunction()
