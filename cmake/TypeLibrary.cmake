# Type libraries.
#
#   kestrel_type_library(NAME FILE.idl)
#       compiles the file to NAME.tlb and NAME.h. Linking NAME_idl gives the header, in which the
#       GUIDs are declared: one source of the program includes <initguid.h> before it to define them.
#   kestrel_embed_type_library(TARGET NAME)
#       puts NAME.tlb into a program or DLL as its resource 1 TYPELIB.

enable_language(RC)

find_path(KESTREL_WIDL_IMPORTS oaidl.idl
    PATHS /usr/include/wine/wine/windows /usr/include/wine/windows /usr/${triple}/include
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(GLOB stdole2 /usr/lib/*/wine/*-windows/stdole2.tlb /usr/lib/wine/*/stdole2.tlb)
if(NOT stdole2)
    message(FATAL_ERROR "stdole2.tlb is not below /usr/lib; install Debian's package wine64")
endif()
list(GET stdole2 0 stdole2)
get_filename_component(KESTREL_WIDL_LIBRARIES ${stdole2} DIRECTORY)

function(kestrel_type_library name idl)
    get_filename_component(idl ${idl} ABSOLUTE)
    get_filename_component(folder ${idl} DIRECTORY)
    file(GLOB beside CONFIGURE_DEPENDS ${folder}/*.idl ${folder}/DispatchIds.h)  # what it may include
    set(out ${CMAKE_BINARY_DIR}/idl/${name})
    file(MAKE_DIRECTORY ${out})
    set(widl ${KESTREL_WIDL} -I${KESTREL_WIDL_IMPORTS} -I${folder} -L${KESTREL_WIDL_LIBRARIES})
    add_custom_command(OUTPUT ${out}/${name}.tlb ${out}/${name}.h
        COMMAND ${widl} -t -o ${out}/${name}.tlb ${idl}
        COMMAND ${CMAKE_SOURCE_DIR}/scripts/undate-typelib ${out}/${name}.tlb
        COMMAND ${widl} -h -o ${out}/${name}.h ${idl}
        DEPENDS ${beside} VERBATIM)
    file(WRITE ${out}/${name}.rc "1 TYPELIB \"${out}/${name}.tlb\"\n")
    add_custom_target(${name}_compiled DEPENDS ${out}/${name}.tlb ${out}/${name}.h)
    add_library(${name}_idl INTERFACE)
    target_include_directories(${name}_idl SYSTEM INTERFACE ${out})  # its warnings are not ours
    add_dependencies(${name}_idl ${name}_compiled)
endfunction()

function(kestrel_embed_type_library target name)
    set(out ${CMAKE_BINARY_DIR}/idl/${name})
    target_sources(${target} PRIVATE ${out}/${name}.rc)
    # The library is an input that the resource compiler's scan does not see.
    set_source_files_properties(${out}/${name}.rc TARGET_DIRECTORY ${target}
        PROPERTIES OBJECT_DEPENDS ${out}/${name}.tlb)
    add_dependencies(${target} ${name}_compiled)
endfunction()
