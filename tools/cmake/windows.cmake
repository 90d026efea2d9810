# How everything is compiled for Windows: one program file that needs the system's libraries alone.
add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
if(MSVC)
    set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
    add_compile_options(/utf-8 /permissive-)
else()
    # Without the time in it, two builds of one commit are the same bytes.
    add_link_options(-static -Wl,--no-insert-timestamp $<$<CONFIG:Release>:-s>)
endif()
