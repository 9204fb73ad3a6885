# Turns resources/strings/*.json (flat objects of key and text) into one table compiled into the core,
# so that neither program reads a file to say something.
function(quill_embed_strings out)
  file(GLOB files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/strings/*.json)
  set(cpp ${CMAKE_BINARY_DIR}/generated/embedded_strings.cpp)
  add_custom_command(
    OUTPUT ${cpp}
    COMMAND ${CMAKE_COMMAND} -DOUT=${cpp} "-DFILES=${files}" -P ${CMAKE_SOURCE_DIR}/cmake/embed_strings.cmake
    DEPENDS ${files} ${CMAKE_SOURCE_DIR}/cmake/embed_strings.cmake
    VERBATIM)
  set(${out} ${cpp} PARENT_SCOPE)
endfunction()

# Compiles a small file into the core as the constant NAME of the room's namespace (shell: shell/embedded_files.h).
function(quill_embed_file out file name room)
  set(cpp ${CMAKE_BINARY_DIR}/generated/${name}.cpp)
  add_custom_command(
    OUTPUT ${cpp}
    COMMAND ${CMAKE_COMMAND} -DOUT=${cpp} -DFILE=${file} -DNAME=${name} -DROOM=${room} -P ${CMAKE_SOURCE_DIR}/cmake/embed_file.cmake
    DEPENDS ${file} ${CMAKE_SOURCE_DIR}/cmake/embed_file.cmake
    VERBATIM)
  set(${out} ${cpp} PARENT_SCOPE)
endfunction()

# Compiles the practice notebook's first pages into one function (practice/built_in_pages.h).
function(quill_embed_pages out)
  file(GLOB files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/practice/pages/*.htm)
  set(cpp ${CMAKE_BINARY_DIR}/generated/built_in_page_files.cpp)
  add_custom_command(
    OUTPUT ${cpp}
    COMMAND ${CMAKE_COMMAND} -DOUT=${cpp} "-DFILES=${files}" -P ${CMAKE_SOURCE_DIR}/cmake/embed_pages.cmake
    DEPENDS ${files} ${CMAKE_SOURCE_DIR}/cmake/embed_pages.cmake
    VERBATIM)
  set(${out} ${cpp} PARENT_SCOPE)
endfunction()
