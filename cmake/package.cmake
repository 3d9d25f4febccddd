# `cmake --build --preset win32 --target package`: a ZIP and an installer under build/win32/package.
install(TARGETS Vintrel LIBRARY DESTINATION .)
install(TARGETS vintrel-host RUNTIME DESTINATION .)
foreach(page README CHANGELOG CONTRIBUTING SECURITY)
  install(FILES ${PROJECT_SOURCE_DIR}/${page}.md DESTINATION .)
endforeach()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/samples ${PROJECT_SOURCE_DIR}/examples DESTINATION .)
# Type library, manifest and IDL: for hosts that bind early or run without registration.
install(FILES ${surface_dir}/Vintrel.tlb ${surface_dir}/Vintrel.idl ${VINTREL_MANIFEST} DESTINATION .)

set(stage ${CMAKE_BINARY_DIR}/package/stage)
add_custom_target(package
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${stage}
  COMMAND ${CMAKE_COMMAND} --install ${CMAKE_BINARY_DIR} --prefix ${stage}
  COMMAND ${PROJECT_SOURCE_DIR}/packaging/build-package ${stage} ${PROJECT_VERSION} ${CMAKE_BINARY_DIR}/package
  DEPENDS Vintrel vintrel-host
  VERBATIM)
