# Debian packages, by cpack: the shared library, what hosts are built with, and the tools.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "ZRCreditBureau")
set(CPACK_PACKAGE_CONTACT "ZRCreditBureau <root@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Credit-bureau enquiries in Australia and New Zealand")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/src)

set(runtime_package libzrcreditbureau${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "the shared library, for hosts of any language")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_LIST_DIR}/triggers)

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzrcreditbureau-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "headers and libraries to build hosts with, in C++ and C")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${runtime_package} (= ${PROJECT_VERSION}), \
libxml2-dev, libxslt1-dev, libcurl4-openssl-dev, libssl-dev, libutf8proc-dev")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME zrcreditbureau)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "the command line, its manual and the report style sheets")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-zrcreditbureau)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_DESCRIPTION "the Python package")
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
    "${runtime_package} (= ${PROJECT_VERSION}), python3 (>= 3.11)")

set(CPACK_COMPONENTS_ALL runtime development tools)
if(ZR_BUILD_PYTHON)
  list(APPEND CPACK_COMPONENTS_ALL python)
endif()
include(CPack)
