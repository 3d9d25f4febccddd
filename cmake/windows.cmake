# The Windows side: the COM surface out of its IDL, the platform edge, and the server DLL.

# --- The surface: header, identifiers and type library ----------------------------------------------------------------
find_path(VINTREL_IDL_IMPORTS oaidl.idl PATHS /usr/include/wine/wine/windows NO_CMAKE_FIND_ROOT_PATH REQUIRED)
find_path(VINTREL_TYPE_LIBRARIES stdole2.tlb PATHS /usr/lib/i386-linux-gnu/wine/i386-windows NO_CMAKE_FIND_ROOT_PATH REQUIRED)

set(surface_idl ${PROJECT_SOURCE_DIR}/com/Vintrel.idl)
set(surface_dir ${CMAKE_BINARY_DIR}/surface)
configure_file(${surface_idl} ${surface_dir}/Vintrel.idl @ONLY)  # with the version
# widl writes the time into the type library, as text and as a number: a fixed one in its place makes the build
# reproducible.
add_custom_command(
  OUTPUT ${surface_dir}/Vintrel.h ${surface_dir}/Vintrel_i.c ${surface_dir}/Vintrel.tlb
  COMMAND ${VINTREL_WIDL} ${VINTREL_WIDL_FLAGS} -I ${VINTREL_IDL_IMPORTS} -L ${VINTREL_TYPE_LIBRARIES}
          -h -H Vintrel.h -u -U Vintrel_i.c -t -T Vintrel.tlb Vintrel.idl
  COMMAND perl -0777 -pi -e "s/(WIDL version [0-9.]+ at ).{24}(\\nW*\\x13\\0).{4}/\${1}Thu Jan  1 00:00:00 1970\${2}\\0\\0\\0\\0/s or die 'no time stamp'"
          Vintrel.tlb
  DEPENDS ${surface_dir}/Vintrel.idl
  WORKING_DIRECTORY ${surface_dir}
  COMMENT "Compiling com/Vintrel.idl"
  VERBATIM)
set_source_files_properties(${surface_dir}/Vintrel_i.c PROPERTIES LANGUAGE CXX COMPILE_OPTIONS -w)

# What a client links: #include "Vintrel.h", the CLSID_, IID_ and LIBID_ constants.
add_library(vintrel_surface STATIC ${surface_dir}/Vintrel_i.c ${surface_dir}/Vintrel.h)
target_include_directories(vintrel_surface SYSTEM INTERFACE ${surface_dir})

# --- The platform edge: every file that talks to Windows below the COM skin ------------------------------------------
file(GLOB edge_sources CONFIGURE_DEPENDS win32/*.cpp)
add_library(vintrel_edge STATIC ${edge_sources})
target_link_libraries(vintrel_edge PUBLIC vintrel_core user32 gdi32 advapi32 winhttp ws2_32)

# --- The server -------------------------------------------------------------------------------------------------------
enable_language(RC)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(VINTREL_ARCHITECTURE amd64)
  set(image_base 0x180000000)
else()
  set(VINTREL_ARCHITECTURE x86)
  set(image_base 0x10000000)
endif()

file(GLOB skin_sources CONFIGURE_DEPENDS com/*.cpp com/runtime/*.cpp)
# COM interfaces have no virtual destructor by contract: Release deletes.
set_source_files_properties(${skin_sources} PROPERTIES COMPILE_OPTIONS -Wno-non-virtual-dtor)
add_library(Vintrel MODULE ${skin_sources} com/Vintrel.rc com/Vintrel.def)
target_link_libraries(Vintrel PRIVATE vintrel_edge vintrel_surface
  ole32 oleaut32 advapi32 uuid)
set_target_properties(Vintrel PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
set_source_files_properties(com/Vintrel.rc PROPERTIES
  INCLUDE_DIRECTORIES ${surface_dir} OBJECT_DEPENDS ${surface_dir}/Vintrel.tlb)
target_link_options(Vintrel PRIVATE
  -Wl,--kill-at,--enable-stdcall-fixup,--gc-sections,--dynamicbase,--nxcompat,--image-base=${image_base})

# Small where nobody waits, fast where every call record passes. The server's objects live on one thread.
set(release $<AND:$<COMPILE_LANGUAGE:CXX>,$<CONFIG:Release>>)
foreach(part vintrel_core vintrel_edge Vintrel)
  target_compile_options(${part} PRIVATE
    $<${release}:-g1 -Os -ffunction-sections -fdata-sections -fno-threadsafe-statics>)
  if(VINTREL_ARCHITECTURE STREQUAL x86)  # 64-bit Windows unwinds with these tables
    target_compile_options(${part} PRIVATE $<${release}:-fno-asynchronous-unwind-tables>)
  endif()
endforeach()
# The core asks no object for its type.
target_compile_options(vintrel_core PRIVATE $<${release}:-fno-rtti>)
file(GLOB fast_sources CONFIGURE_DEPENDS records/*.cpp exchanges/*/call_records.cpp)
list(APPEND fast_sources text/text.cpp text/dates.cpp server/call_records.cpp server/type_code.cpp
  exchanges/alcatel.cpp exchanges/algoral.cpp exchanges/avaya_integral2.cpp exchanges/catalogue.cpp exchanges/wildix.cpp
  exchanges/innovaphone/record_keys.cpp exchanges/innovaphone/reference_table.cpp
  exchanges/ip_office/continuation_table.cpp com/com_events_rx.cpp com/strings.cpp)
set_property(SOURCE ${fast_sources} APPEND PROPERTY COMPILE_OPTIONS "$<$<CONFIG:Release>:-O2;-falign-loops=32>")

# The symbols stay beside the DLL that ships. Each of the tools would write the present time into the file.
set(no_time ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0)
add_custom_command(TARGET Vintrel POST_BUILD
  COMMAND ${no_time} ${CMAKE_OBJCOPY} --only-keep-debug $<TARGET_FILE:Vintrel> Vintrel.debug
  COMMAND ${no_time} ${CMAKE_STRIP} --strip-all $<TARGET_FILE:Vintrel>
  COMMAND ${no_time} ${CMAKE_OBJCOPY} --add-gnu-debuglink=Vintrel.debug $<TARGET_FILE:Vintrel>
  WORKING_DIRECTORY ${CMAKE_BINARY_DIR}
  VERBATIM)

include(cmake/manifest.cmake)
