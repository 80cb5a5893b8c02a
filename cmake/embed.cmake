# embed_file(TARGET FILE FUNCTION) makes the bytes of a file part of a target: it generates the
# source of std::span<const std::uint8_t> lookfar::resources::FUNCTION(), which returns them.
function(embed_file target file function)
    set(input ${CMAKE_CURRENT_SOURCE_DIR}/${file})
    set(output ${CMAKE_CURRENT_BINARY_DIR}/${file}.cpp)
    set(script ${PROJECT_SOURCE_DIR}/cmake/write_embedded.cmake)
    add_custom_command(
        OUTPUT ${output}
        COMMAND ${CMAKE_COMMAND} -DINPUT=${input} -DOUTPUT=${output} -DFUNCTION=${function}
            -P ${script}
        DEPENDS ${input} ${script}
        COMMENT "Embedding ${file}"
        VERBATIM)
    target_sources(${target} PRIVATE ${output})
endfunction()
