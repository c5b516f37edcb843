# What Debian asks of every package beyond what is installed from source: who holds the copyright, and what
# changed. Run by cpack before it packs what it has installed for each component.

if(NOT CPACK_GENERATOR STREQUAL DEB)
    return()
endif()

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} upper)
    set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
    execute_process(
        COMMAND ${CMAKE_CURRENT_LIST_DIR}/add-documents
                ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr/share/doc/${package}
                ${CPACK_DEBIAN_PACKAGE_SOURCE} ${CPACK_PACKAGE_VERSION} ${CPACK_PACKAGE_CONTACT}
        COMMAND_ERROR_IS_FATAL ANY)
endforeach()
