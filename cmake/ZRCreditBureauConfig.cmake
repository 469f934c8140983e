# find_package(ZRCreditBureau): the target zrcreditbureau::zrcreditbureau and what it needs.
include(CMakeFindDependencyMacro)
find_dependency(LibXml2)
find_dependency(CURL)
find_dependency(OpenSSL)
find_dependency(PkgConfig)
pkg_check_modules(XSLT REQUIRED IMPORTED_TARGET libxslt libexslt)
pkg_check_modules(UTF8PROC REQUIRED IMPORTED_TARGET libutf8proc)
include(${CMAKE_CURRENT_LIST_DIR}/ZRCreditBureauTargets.cmake)
