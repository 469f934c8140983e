<?xml version="1.0" encoding="utf-8"?>
<!-- A reply of VedaXML Australia as a page for credit officers: a report, the companies of a
     search, or the bureau's refusal. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:include href="common.xsl"/>
  <xsl:include href="vedaxml_au_codes.xsl"/>
  <xsl:include href="vedaxml_au_overview.xsl"/>
  <xsl:include href="vedaxml_au_match.xsl"/>
  <xsl:include href="vedaxml_au_credit_file.xsl"/>
  <xsl:include href="vedaxml_au_public_file.xsl"/>
  <xsl:include href="vedaxml_au_score.xsl"/>
  <xsl:include href="vedaxml_au_other_replies.xsl"/>

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
        <xsl:call-template name="companies-page"/>
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

  <!-- The page of this service. -->
  <xsl:template name="report-page">
    <xsl:param name="eyebrow"/>
    <xsl:param name="title"/>
    <xsl:param name="lede"/>
    <xsl:param name="contents"/>
    <xsl:param name="body"/>
    <xsl:call-template name="page">
      <xsl:with-param name="lang">en-AU</xsl:with-param>
      <xsl:with-param name="eyebrow" select="concat($eyebrow, ', Australia')"/>
      <xsl:with-param name="title" select="$title"/>
      <xsl:with-param name="lede" select="$lede"/>
      <xsl:with-param name="contents" select="$contents"/>
      <xsl:with-param name="body" select="$body"/>
      <xsl:with-param name="foot">
        <xsl:if test="normalize-space(/BCAmessage/@service-request-id)">
          <xsl:value-of select="concat('Bureau request ', /BCAmessage/@service-request-id, '. ')"/>
        </xsl:if>
        <xsl:text>Confidential: contains personal credit information.</xsl:text>
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
