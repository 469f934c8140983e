<?xml version="1.0" encoding="utf-8"?>
<!-- A stored B2Bay New Zealand report, version 2, as a page for credit officers. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:include href="nz_report.xsl"/>
  <xsl:include href="b2bay_nz_v2_codes.xsl"/>

  <xsl:variable name="services">B2BayNZ_V2</xsl:variable>
  <xsl:variable name="layout">b2bay-2</xsl:variable>

  <!-- Reports of the other layouts, by what only they have. -->
  <xsl:variable name="foreign" select="$other-country
      | $first-b2bay | $vedaxml-only"/>

</xsl:stylesheet>
