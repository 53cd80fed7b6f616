# The program's Windows resources: icon 101 (rendered from the window's SVG
# artwork at every size the shell asks for), the application manifest and
# the version information, compiled from zorvane.rc.in.

# zorvane_windows_resources(target)
function(zorvane_windows_resources target)
    set(here "${PROJECT_SOURCE_DIR}/packaging/windows")
    set(artwork "${PROJECT_SOURCE_DIR}/src/shell/icons/zorvane.svg")
    set(ZORVANE_WINDOWS_ICON "${CMAKE_CURRENT_BINARY_DIR}/zorvane.ico")
    set(ZORVANE_WINDOWS_MANIFEST "${here}/zorvane.exe.manifest")
    add_custom_command(
        OUTPUT "${ZORVANE_WINDOWS_ICON}"
        COMMAND "${here}/make-ico" "${artwork}" "${ZORVANE_WINDOWS_ICON}"
        DEPENDS "${here}/make-ico" "${artwork}"
        COMMENT "Rendering the Windows icon"
        VERBATIM)
    configure_file("${here}/zorvane.rc.in" "${CMAKE_CURRENT_BINARY_DIR}/zorvane.rc" @ONLY)
    target_sources(${target} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/zorvane.rc")
    set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/zorvane.rc" PROPERTIES
        OBJECT_DEPENDS "${ZORVANE_WINDOWS_ICON};${ZORVANE_WINDOWS_MANIFEST}")
endfunction()
