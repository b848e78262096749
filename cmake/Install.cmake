# Installation: the library, its public headers under include/stratagem/ with
# the umbrella include/stratagem.h beside them, a CMake package
# (find_package(stratagem) -> stratagem::stratagem), a pkg-config file and the
# host program. Every installed path is relative to the prefix, so
# `cmake --install build --prefix P` may pick any P.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
include(${CMAKE_CURRENT_LIST_DIR}/PublicHeaders.cmake)

set(STRATAGEM_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/stratagem)

# Hosts write `#include "stratagem.h"` (found in include/) or name a subsystem
# header such as "vocabulary/AI_Vocabulary.h" (found in include/stratagem/).
target_include_directories(stratagem PUBLIC $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
# The headers need C++17 (CMap.h uses if constexpr).
target_compile_features(stratagem INTERFACE cxx_std_17)

# ---- library and host program -----------------------------------------------
install(TARGETS stratagem EXPORT stratagemTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

if(TARGET stratagem_cli)
  # The installed program finds the library beside it, wherever the prefix is.
  set_target_properties(stratagem_cli PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
  install(TARGETS stratagem_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
if(TARGET stratagem_lsp)
  set_target_properties(stratagem_lsp PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
  install(TARGETS stratagem_lsp RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

# ---- headers ------------------------------------------------------------------
stratagem_install_public_headers(
  ROOT ${PROJECT_SOURCE_DIR}/src
  UMBRELLA stratagem.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  SUBDIR stratagem)

# ---- CMake package ------------------------------------------------------------
install(EXPORT stratagemTargets
  NAMESPACE stratagem::
  DESTINATION ${STRATAGEM_INSTALL_CMAKEDIR}
  FILE stratagemTargets.cmake)

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/stratagemConfig.cmake.in
  ${PROJECT_BINARY_DIR}/stratagemConfig.cmake
  INSTALL_DESTINATION ${STRATAGEM_INSTALL_CMAKEDIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/stratagemConfigVersion.cmake
  VERSION ${PROJECT_VERSION}
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/stratagemConfig.cmake
  ${PROJECT_BINARY_DIR}/stratagemConfigVersion.cmake
  DESTINATION ${STRATAGEM_INSTALL_CMAKEDIR})

# ---- pkg-config ---------------------------------------------------------------
# The .pc file finds the prefix from its own location.
file(RELATIVE_PATH STRATAGEM_PC_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" STRATAGEM_PC_TO_PREFIX "${STRATAGEM_PC_TO_PREFIX}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/stratagem.pc.in ${PROJECT_BINARY_DIR}/stratagem.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/stratagem.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
