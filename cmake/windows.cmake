# The Windows side: the COM surface out of its IDL, the server DLL, and the reference host.

# --- The surface: header, identifiers and type library ----------------------------------------------------------------
find_path(VINTREL_IDL_IMPORTS oaidl.idl PATHS /usr/include/wine/wine/windows NO_CMAKE_FIND_ROOT_PATH REQUIRED)
find_path(VINTREL_TYPE_LIBRARIES stdole2.tlb PATHS /usr/lib/i386-linux-gnu/wine/i386-windows NO_CMAKE_FIND_ROOT_PATH REQUIRED)

set(surface_idl ${PROJECT_SOURCE_DIR}/com/Vintrel.idl)
set(surface_dir ${CMAKE_BINARY_DIR}/surface)
file(MAKE_DIRECTORY ${surface_dir})
# widl writes the time into the type library: a fixed one in its place makes the build reproducible.
add_custom_command(
  OUTPUT ${surface_dir}/Vintrel.h ${surface_dir}/Vintrel_i.c ${surface_dir}/Vintrel.tlb
  COMMAND ${VINTREL_WIDL} ${VINTREL_WIDL_FLAGS} -I ${VINTREL_IDL_IMPORTS} -L ${VINTREL_TYPE_LIBRARIES}
          -h -H Vintrel.h -u -U Vintrel_i.c -t -T Vintrel.tlb ${surface_idl}
  COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C
          sed -i -E "s/(WIDL version [0-9.]+ at ).{24}/\\1Thu Jan  1 00:00:00 1970/" Vintrel.tlb
  DEPENDS ${surface_idl}
  WORKING_DIRECTORY ${surface_dir}
  COMMENT "Compiling com/Vintrel.idl"
  VERBATIM)
set_source_files_properties(${surface_dir}/Vintrel_i.c PROPERTIES LANGUAGE CXX COMPILE_OPTIONS -w)

# What a client links: #include "Vintrel.h", the CLSID_, IID_ and LIBID_ constants.
add_library(vintrel_surface STATIC ${surface_dir}/Vintrel_i.c ${surface_dir}/Vintrel.h)
target_include_directories(vintrel_surface SYSTEM INTERFACE ${surface_dir})

# --- The platform edge: every file that talks to Windows below the COM skin ------------------------------------------
add_library(vintrel_edge STATIC ${edge_sources})
target_link_libraries(vintrel_edge PUBLIC vintrel_core user32 gdi32 shell32 comctl32 advapi32)
