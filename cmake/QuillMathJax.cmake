# MathJax beside the program: build/*/share/quillmenu/mathjax, found from the program's own folder as in an
# installation. Looked at with every build, because the set-up (scripts/setup.sh) may bring it later.
set(QUILL_MATHJAX_PACKAGES ${CMAKE_SOURCE_DIR}/build/mathjax/node_modules CACHE PATH
    "Where npm put the packages of resources/mathjax/package-lock.json")
set(QUILL_MATHJAX_FOLDER ${CMAKE_BINARY_DIR}/share/quillmenu/mathjax)
add_custom_target(mathjax_files ALL
  COMMAND ${CMAKE_COMMAND} -DFROM=${QUILL_MATHJAX_PACKAGES} -DTO=${QUILL_MATHJAX_FOLDER}
          -DLIST=${CMAKE_SOURCE_DIR}/resources/mathjax/files.txt -P ${CMAKE_SOURCE_DIR}/cmake/copy_mathjax.cmake
  VERBATIM)
