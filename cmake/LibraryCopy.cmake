# stratagem_library_copy(NAME): an object library NAME holding a copy of the
# library's sources, for programs that link the library statically to reach
# its internal functions (the benchmark, the fuzz target). The scanner and the
# grammar are generated again in the calling directory: a Makefile build has
# no rule in a subdirectory for the files the top-level directory generates.
function(stratagem_library_copy NAME)
  set(gen_dir ${CMAKE_CURRENT_BINARY_DIR}/generated)
  file(MAKE_DIRECTORY ${gen_dir})
  BISON_TARGET(${NAME}_grammar ${PROJECT_SOURCE_DIR}/src/parser/AI_Grammar.y
               ${gen_dir}/AI_Grammar.tab.cpp
               DEFINES_FILE ${gen_dir}/AI_Grammar.tab.h
               COMPILE_FLAGS "-Wall -Werror")
  FLEX_TARGET(${NAME}_scanner ${PROJECT_SOURCE_DIR}/src/parser/AI_Scanner.l
              ${gen_dir}/AI_Scanner.yy.cpp)
  ADD_FLEX_BISON_DEPENDENCY(${NAME}_scanner ${NAME}_grammar)
  add_library(${NAME} OBJECT
    ${LIB_SOURCES} ${BISON_${NAME}_grammar_OUTPUTS} ${FLEX_${NAME}_scanner_OUTPUTS})
  target_compile_definitions(${NAME} PUBLIC STRATAGEM_BUILDING)
  target_include_directories(${NAME}
    PUBLIC ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/src/parser
    PRIVATE ${gen_dir})
endfunction()
