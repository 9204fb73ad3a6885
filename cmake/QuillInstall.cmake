# `cmake --install`: the programs, the plug-in where the program looks for it, and what a Linux desktop needs to
# find them. (A macOS bundle is put together by its own steps.)
if(APPLE)
  return()
endif()
include(GNUInstallDirs)
install(TARGETS quill RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS quill-practice RUNTIME DESTINATION lib/quillmenu)
install(DIRECTORY docs/man/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 FILES_MATCHING PATTERN "*.1")
if(TARGET quillmenu)
  install(TARGETS quillmenu RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(TARGETS quillweb LIBRARY DESTINATION lib/quillmenu)
  install(DIRECTORY ${QUILL_MATHJAX_FOLDER} DESTINATION ${CMAKE_INSTALL_DATADIR}/quillmenu OPTIONAL
          PATTERN ".stamp" EXCLUDE)
  install(FILES packaging/quillmenu.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES resources/icons/Quill.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
          RENAME quillmenu.svg)
  foreach(size 16 22 24 32 48 64 128 256 512)
    install(FILES ${CMAKE_BINARY_DIR}/generated/icons/Quill${size}.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps RENAME quillmenu.png)
  endforeach()
endif()
