# What `cmake --install` puts where. The languages are built into the programs.
install(TARGETS quillon quillon-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES docs/quillon.1 docs/quillon-cli.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES LICENSE README.md docs/Dependencies.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY examples/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples
  FILES_MATCHING PATTERN "*.qlm" PATTERN "*.json" PATTERN make EXCLUDE)
install(FILES data/desktop/quillon.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES data/desktop/quillon.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES src/forms/icons/quillon.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
