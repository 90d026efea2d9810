# The program directory of a build: the program looks for its pictures and its help beside itself.
set(program_directory "${PROJECT_BINARY_DIR}/Solvanta")
file(GLOB shipped_files CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/shipped/*")
if(WIN32)
    # The icon in the sizes that desktops ask for: a program for Windows has it inside.
    list(FILTER shipped_files EXCLUDE REGEX "/Solvanta[-0-9]*\\.png$")
endif()
set(copied_files "")
foreach(file IN LISTS shipped_files)
    get_filename_component(name "${file}" NAME)
    add_custom_command(OUTPUT "${program_directory}/${name}"
        COMMAND "${CMAKE_COMMAND}" -E copy "${file}" "${program_directory}/${name}"
        DEPENDS "${file}"
        COMMENT ""
        VERBATIM)
    list(APPEND copied_files "${program_directory}/${name}")
endforeach()
add_custom_target(program_directory ALL DEPENDS ${copied_files})
install(FILES ${shipped_files} DESTINATION . COMPONENT program)

# Makes the executable `target` the program in there, whatever the generator.
function(solvanta_program target)
    set_target_properties(${target} PROPERTIES
        OUTPUT_NAME Solvanta
        RUNTIME_OUTPUT_DIRECTORY "$<1:${program_directory}>")
    install(TARGETS ${target} RUNTIME DESTINATION . COMPONENT program)
endfunction()
