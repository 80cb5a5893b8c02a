# embed_files(TARGET FILE=FUNCTION...) makes the bytes of files part of a target: it generates a
# source with std::span<const std::uint8_t> lookfar::resources::FUNCTION() for each FILE, which
# returns its bytes.
function(embed_files target)
    set(output ${CMAKE_CURRENT_BINARY_DIR}/embedded.cpp)
    set(script ${PROJECT_SOURCE_DIR}/cmake/write_embedded.cmake)
    list(TRANSFORM ARGN REPLACE "=.*" "" OUTPUT_VARIABLE files)
    add_custom_command(
        OUTPUT ${output}
        COMMAND ${CMAKE_COMMAND} "-DEMBEDDED=${ARGN}" -DOUTPUT=${output} -P ${script}
        DEPENDS ${files} ${script}
        WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}
        COMMENT "Embedding files into ${target}"
        VERBATIM)
    target_sources(${target} PRIVATE ${output})
endfunction()
