<?xml version="1.0" encoding="utf-8"?>
<!-- The companies that a search found. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:template name="companies">
    <xsl:call-template name="table-section">
      <xsl:with-param name="level" select="2"/>
      <xsl:with-param name="title">Companies</xsl:with-param>
      <xsl:with-param name="records" select="$found"/>
      <xsl:with-param name="columns">Company|Type|Number|Status|State|Bureau file|</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <!-- The number is that which the heading names; without a heading, the business number. -->
  <xsl:template match="org-id-result" mode="row">
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Company</xsl:with-param>
      <xsl:with-param name="value" select="match-name"/>
      <xsl:with-param name="head" select="true()"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Type</xsl:with-param>
      <xsl:with-param name="value"><xsl:choose>
        <xsl:when test="normalize-space(australian-business-register-report/EntityTypeText)">
          <xsl:value-of select="australian-business-register-report/EntityTypeText"/>
        </xsl:when>
        <xsl:otherwise><xsl:value-of select="organisation-type"/></xsl:otherwise>
      </xsl:choose></xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Number</xsl:with-param>
      <xsl:with-param name="value"><xsl:choose>
        <xsl:when test="normalize-space(organisation-number-heading) = 'ACN'">
          <xsl:value-of select="concat('ACN&#160;', normalize-space(organisation-number))"/>
        </xsl:when>
        <xsl:when test="not(normalize-space(organisation-number-heading))
                        and normalize-space(australian-business-number)">
          <xsl:value-of select="concat('ABN&#160;', normalize-space(australian-business-number))"/>
        </xsl:when>
      </xsl:choose></xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Status</xsl:with-param>
      <xsl:with-param name="value" select="asic-report/asic-status"/>
      <xsl:with-param name="as">marked</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">State</xsl:with-param>
      <xsl:with-param name="value" select="state"/>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Bureau file</xsl:with-param>
      <xsl:with-param name="value" select="bureau-report/bureau-reference"/>
    </xsl:call-template>
  </xsl:template>

</xsl:stylesheet>
