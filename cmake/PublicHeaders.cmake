# The public headers are exactly those that the umbrella header reaches
# through quoted includes; internal headers (used by the sources only) are not
# installed. Every scanned header is a configure dependency, so a changed
# include is picked up by the next build.

# Sets out_var to the headers reached from the given ones, these included.
# A quoted include is looked up beside the including file, then under root.
function(stratagem_header_closure out_var root)
  set(pending ${ARGN})
  set(found)
  while(pending)
    list(POP_FRONT pending header)
    if(header IN_LIST found)
      continue()
    endif()
    list(APPEND found ${header})
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${header})
    get_filename_component(dir ${header} DIRECTORY)
    file(STRINGS ${header} includes REGEX "^[ \t]*#[ \t]*include[ \t]*\"")
    foreach(line IN LISTS includes)
      string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*\"([^\"]+)\".*$" "\\1" name "${line}")
      foreach(base ${dir} ${root})
        get_filename_component(path ${base}/${name} ABSOLUTE)
        if(EXISTS ${path})
          list(APPEND pending ${path})
          break()
        endif()
      endforeach()
    endforeach()
  endwhile()
  set(${out_var} ${found} PARENT_SCOPE)
endfunction()

# Installs ROOT/UMBRELLA as DESTINATION/UMBRELLA with its includes redirected
# into DESTINATION/SUBDIR, and every header it reaches as
# DESTINATION/SUBDIR/<path below ROOT>.
function(stratagem_install_public_headers)
  cmake_parse_arguments(ARG "" "ROOT;UMBRELLA;DESTINATION;SUBDIR" "" ${ARGN})
  set(umbrella ${ARG_ROOT}/${ARG_UMBRELLA})
  stratagem_header_closure(headers ${ARG_ROOT} ${umbrella})
  list(REMOVE_ITEM headers ${umbrella})
  foreach(header ${headers})
    file(RELATIVE_PATH relative ${ARG_ROOT} ${header})
    if(relative MATCHES "^\\.\\./")
      message(FATAL_ERROR "public header ${header} lies outside ${ARG_ROOT}")
    endif()
    get_filename_component(subdir ${relative} DIRECTORY)
    install(FILES ${header} DESTINATION ${ARG_DESTINATION}/${ARG_SUBDIR}/${subdir})
  endforeach()

  # The umbrella is the source one with "x/y.h" rewritten as "SUBDIR/x/y.h".
  file(READ ${umbrella} text)
  string(REGEX REPLACE "(#[ \t]*include[ \t]*\")" "\\1${ARG_SUBDIR}/" text "${text}")
  set(generated ${PROJECT_BINARY_DIR}/include/${ARG_UMBRELLA})
  file(CONFIGURE OUTPUT ${generated} CONTENT "${text}" @ONLY)
  install(FILES ${generated} DESTINATION ${ARG_DESTINATION})
endfunction()
