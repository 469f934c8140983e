# Tests of the tools; a tool that is not built has none.
if(TARGET bureau_gateway_lib)
  zr_test_folder(gateway bureau_gateway_lib)
endif()
