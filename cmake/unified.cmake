# Compiles the sources of the targets below a directory eight at a time, in files that include them:
# builds with sanitizers and the linter spend most of their time on headers. Names in anonymous
# namespaces are therefore unique within a target. By the names of the files clang's analyser knows
# that it has to look at the functions of what they include, which CMake's own UNITY_BUILD does not
# give. Targets where that is off, and sources with SKIP_UNITY_BUILD_INCLUSION, stay as they are.
function(unify_targets directory)
    get_property(subdirectories DIRECTORY ${directory} PROPERTY SUBDIRECTORIES)
    foreach(subdirectory ${subdirectories})
        unify_targets(${subdirectory})
    endforeach()
    get_property(targets DIRECTORY ${directory} PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target ${targets})
        get_target_property(sources ${target} SOURCES)
        get_target_property(wanted ${target} UNITY_BUILD)
        list(LENGTH sources count)
        if(sources AND count GREATER 1 AND NOT wanted STREQUAL OFF)
            unify(${target} ${sources})
        endif()
    endforeach()
endfunction()

function(unify target)
    get_target_property(source_directory ${target} SOURCE_DIR)
    get_target_property(binary_directory ${target} BINARY_DIR)
    if(EXISTS ${source_directory}/.clang-tidy) # the linter takes the settings nearest to a file
        configure_file(${source_directory}/.clang-tidy ${binary_directory} COPYONLY)
    endif()
    set(directory ${binary_directory}/CMakeFiles/${target}.dir)
    set(files)
    set(count 0)
    foreach(source ${ARGN})
        get_source_file_property(stays ${source} TARGET_DIRECTORY ${target}
            SKIP_UNITY_BUILD_INCLUSION)
        if(stays)
            list(APPEND files ${source})
            continue()
        endif()
        math(EXPR number "${count} / 8")
        math(EXPR count "${count} + 1")
        cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${source_directory} NORMALIZE)
        string(APPEND content_${number}
            "#include \"${source}\" // NOLINT(bugprone-suspicious-include)\n")
    endforeach()
    foreach(number RANGE ${number})
        file(CONFIGURE OUTPUT ${directory}/UnifiedSource${number}.cpp
            CONTENT "${content_${number}}")
        list(APPEND files ${directory}/UnifiedSource${number}.cpp)
    endforeach()
    set_target_properties(${target} PROPERTIES SOURCES "${files}")
    target_compile_options(${target} PRIVATE -Wno-shadow) # of a neighbour's names
endfunction()
