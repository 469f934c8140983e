# Tests of the tools; a tool that is not built has none.
if(TARGET bureau_gateway_lib)
  zr_test_folder(gateway bureau_gateway_lib)
endif()

# The style sheets, over the example replies.
zr_test_folder(xslt zr_facade)
