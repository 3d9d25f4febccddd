# The side-by-side manifest: one class for every row of com/class_table.cpp, with the identifiers of the IDL.
set(class_table ${PROJECT_SOURCE_DIR}/com/class_table.cpp)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${class_table} ${surface_idl})

file(READ ${surface_idl} idl)
string(REGEX MATCH "uuid\\(([^)]*)\\),[^]]*version\\(([^)]*)\\)[^]]*\\][ \n]*library " found "${idl}")
set(library_id "{${CMAKE_MATCH_1}}")
set(library_version ${CMAKE_MATCH_2})

string(REGEX MATCHALL "coclass [A-Za-z]+" coclasses "${idl}")
file(STRINGS ${class_table} rows REGEX "^    {CLSID_")
list(LENGTH coclasses coclass_count)
list(LENGTH rows row_count)
if(row_count EQUAL 0 OR NOT row_count EQUAL coclass_count)
  message(FATAL_ERROR "${class_table} has ${row_count} rows, ${surface_idl} declares ${coclass_count} classes")
endif()

set(manifest_classes "")
foreach(row ${rows})
  string(REGEX MATCH "{CLSID_([A-Za-z]+), .*L\"([A-Za-z.]+)\"" found "${row}")
  set(coclass ${CMAKE_MATCH_1})
  set(prog_id ${CMAKE_MATCH_2})
  string(REGEX MATCH "uuid\\(([^)]*)\\),[^]]*\\][ \n]*coclass ${coclass}[ \n]" found "${idl}")
  if(NOT found)
    message(FATAL_ERROR "${surface_idl} declares no class ${coclass}")
  endif()
  string(APPEND manifest_classes "    <comClass clsid=\"{${CMAKE_MATCH_1}}\" progid=\"${prog_id}\""
         " threadingModel=\"Apartment\" tlbid=\"${library_id}\"/>\n")
endforeach()

set(VINTREL_MANIFEST ${CMAKE_BINARY_DIR}/Vintrel.Server.manifest)
configure_file(com/Vintrel.Server.manifest.in ${VINTREL_MANIFEST} @ONLY)
