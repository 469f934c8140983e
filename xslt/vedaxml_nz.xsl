<?xml version="1.0" encoding="utf-8"?>
<!-- A reply of VedaXML New Zealand as a page for credit officers: a report on a person or on a company,
     with or without its directors, the companies of a search, or the bureau's refusal. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:include href="nz_report.xsl"/>
  <xsl:include href="vedaxml_nz_codes.xsl"/>

  <xsl:variable name="services">VedaXMLNZ</xsl:variable>
  <xsl:variable name="layout">vedaxml</xsl:variable>

  <!-- Reports of the other layouts, by what only they have. -->
  <xsl:variable name="foreign" select="$other-country
      | $first-b2bay | $second-b2bay"/>

</xsl:stylesheet>
