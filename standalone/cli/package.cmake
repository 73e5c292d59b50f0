# The Debian package of the stand-alone host: the program and the module lie side by side, as the program expects.
# Not right below lib, for which CPack has the package call ldconfig, as if others linked the module.
set(package_folder "lib/${CMAKE_LIBRARY_ARCHITECTURE}/quiltor")
install(TARGETS quiltor RUNTIME DESTINATION "${package_folder}")
install(TARGETS Quiltor LIBRARY DESTINATION "${package_folder}")
if(TARGET QuiltorDialogs)
  install(TARGETS QuiltorDialogs LIBRARY DESTINATION "${package_folder}")
endif()
install(CODE "
  file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin\")
  file(CREATE_LINK \"../${package_folder}/quiltor\" \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin/quiltor\" SYMBOLIC)")
install(FILES "${PROJECT_SOURCE_DIR}/README.md" DESTINATION share/doc/quiltor)
install(CODE "
  set(terms \"The programs of this package have parts of these libraries compiled into them, under the terms below.\n\")
  foreach(library cli11 nlohmann-json boost highway)
    execute_process(COMMAND \"${PROJECT_SOURCE_DIR}/cmake/header_licences.sh\" \${library}
                    OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
    string(APPEND terms \"\\n\\n--- \${library} ---\\n\\n\${text}\")
  endforeach()
  set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/share/doc/quiltor\")
  file(MAKE_DIRECTORY \"\${folder}\")
  file(WRITE \"\${folder}/copyright\" \"\${terms}\")
  file(CHMOD \"\${folder}/copyright\" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quiltor)
set(CPACK_PACKAGE_CONTACT "the Quiltor developers <developers@quiltor.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "draws a pattern over a layer, as an effect and from the command line")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME "quiltor_${PROJECT_VERSION}_amd64.deb")
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The letters of contact sheets and of dialogs.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS fonts-dejavu-core)
include(CPack)
