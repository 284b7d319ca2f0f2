# What every program and DLL for Windows that is given away has in common.
#
#   kestrel_windows_binary(TARGET TYPE DESCRIPTION)
#       TYPE is APP or DLL. Puts the version resource in, with the project's version, and leaves
#       the symbols in FILE.debug beside the stripped FILE; gdb finds them there.

function(kestrel_windows_binary target type description)
    get_target_property(name ${target} RUNTIME_OUTPUT_NAME)
    if(NOT name)
        set(name ${target})
    endif()
    if(type STREQUAL "DLL")
        set(file ${name}.dll)
        set(more "VALUE \"OLESelfRegister\", \"\"")
    else()
        set(file ${name}.exe)
        set(more)
    endif()
    set(resource ${CMAKE_BINARY_DIR}/version/${target}.rc)
    configure_file(${CMAKE_SOURCE_DIR}/cmake/Version.rc.in ${resource} @ONLY)
    target_sources(${target} PRIVATE ${resource})
    # The same sources give the same bytes.
    target_link_options(${target} PRIVATE -Wl,--no-insert-timestamp)
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND ${CMAKE_SOURCE_DIR}/scripts/split-symbols ${triple}-objcopy $<TARGET_FILE:${target}>
        VERBATIM)
endfunction()
