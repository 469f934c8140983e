<?xml version="1.0" encoding="utf-8"?>
<!-- A reply of VedaXML Australia as a page for credit officers: a report, the companies of a
     search, or the bureau's refusal. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:include href="common.xsl"/>
  <xsl:include href="sections.xsl"/>
  <xsl:include href="replies.xsl"/>
  <xsl:include href="vedaxml_au_codes.xsl"/>
  <xsl:include href="vedaxml_au_overview.xsl"/>
  <xsl:include href="vedaxml_au_match.xsl"/>
  <xsl:include href="vedaxml_au_credit_file.xsl"/>
  <xsl:include href="vedaxml_au_public_file.xsl"/>
  <xsl:include href="vedaxml_au_score.xsl"/>
  <xsl:include href="vedaxml_au_companies.xsl"/>

  <xsl:variable name="lang">en-AU</xsl:variable>
  <xsl:variable name="country">Australia</xsl:variable>
  <xsl:variable name="service" select="/BCAmessage/BCAservices/BCAservice"/>
  <xsl:variable name="response" select="$service/BCAservice-data/response"/>
  <xsl:variable name="report" select="$response/enquiry-report[1]"/>

  <xsl:template match="/">
    <xsl:variable name="refusals" select="//BCAservice-data/BCAerror | //BCAservice-data/response/error"/>
    <xsl:choose>
      <xsl:when test="$refusals">
        <xsl:call-template name="refusal-page">
          <xsl:with-param name="refusals" select="$refusals"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:when test="$report"><xsl:apply-templates select="$report[1]"/></xsl:when>
      <xsl:when test="$response/org-id-result or $service/BCAservice-code = 'BCA020'">
        <xsl:call-template name="companies-page">
          <xsl:with-param name="found" select="$response/org-id-result"/>
          <xsl:with-param name="table">
            <xsl:call-template name="table-section">
              <xsl:with-param name="level" select="2"/>
              <xsl:with-param name="title">Companies</xsl:with-param>
              <xsl:with-param name="records" select="$response/org-id-result"/>
              <xsl:with-param name="columns">Company|Type|Number|Status|State|Bureau file|</xsl:with-param>
            </xsl:call-template>
          </xsl:with-param>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:call-template name="nothing-page"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="enquiry-report">
    <xsl:variable name="match" select="primary-match[1]"/>
    <xsl:variable name="other" select="possible-match[1]"/>
    <xsl:variable name="name">
      <xsl:apply-templates select="$match/individual[1]" mode="name"/>
    </xsl:variable>
    <xsl:call-template name="report-page">
      <xsl:with-param name="eyebrow">Credit report</xsl:with-param>
      <xsl:with-param name="title">
        <xsl:value-of select="$name"/>
        <xsl:if test="not(string($name)) and $match">Unnamed file</xsl:if>
        <xsl:if test="not($match)">No matching file</xsl:if>
      </xsl:with-param>
      <xsl:with-param name="lede">
        <xsl:apply-templates select="$match" mode="lede"/>
      </xsl:with-param>
      <xsl:with-param name="contents">
        <xsl:apply-templates select="$match/*" mode="contents"/>
        <xsl:apply-templates select="summary-data[summary][1] | score-data[1]" mode="contents"/>
        <xsl:apply-templates select="$other" mode="contents"/>
      </xsl:with-param>
      <xsl:with-param name="body">
        <xsl:call-template name="overview">
          <xsl:with-param name="match" select="$match"/>
          <xsl:with-param name="other" select="$other"/>
        </xsl:call-template>
        <xsl:apply-templates select="$match" mode="file"/>
        <xsl:call-template name="summary-data"/>
        <xsl:call-template name="score"/>
        <xsl:apply-templates select="$other" mode="other"/>
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <!-- The links at the top, to what is really there. -->
  <xsl:template match="*" mode="contents"/>
  <xsl:template match="individual" mode="contents"><li><a href="#person">Person</a></li></xsl:template>
  <xsl:template match="individual-consumer-credit-file[*]" mode="contents">
    <li><a href="#consumer">Consumer credit file</a></li>
  </xsl:template>
  <xsl:template match="individual-commercial-credit-file[*]" mode="contents">
    <li><a href="#commercial">Commercial credit file</a></li>
  </xsl:template>
  <xsl:template match="individual-public-data-file[*]" mode="contents">
    <li><a href="#public">Public data</a></li>
  </xsl:template>
  <xsl:template match="summary-data" mode="contents"><li><a href="#totals">Summary data</a></li></xsl:template>
  <xsl:template match="score-data" mode="contents"><li><a href="#score">Score</a></li></xsl:template>
  <xsl:template match="possible-match" mode="contents">
    <li><a href="#possible-match">Possible match</a></li>
  </xsl:template>

</xsl:stylesheet>
