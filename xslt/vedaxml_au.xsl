<?xml version="1.0" encoding="utf-8"?>
<!-- A reply of VedaXML Australia, or a stored B2Bay Australia report, as a page for credit officers: a
     report, the companies of a search, or the bureau's refusal. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:include href="common.xsl"/>
  <xsl:include href="sections.xsl"/>
  <xsl:include href="counts.xsl"/>
  <xsl:include href="timeline.xsl"/>
  <xsl:include href="marks.xsl"/>
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
  <xsl:variable name="services">VedaXMLAU|B2BayAU</xsl:variable>
  <xsl:variable name="bureau-service" select="/BCAmessage/BCAservices/BCAservice"/>
  <xsl:variable name="response" select="$bureau-service/BCAservice-data/response"/>
  <xsl:variable name="report" select="$response/enquiry-report[1]"/>
  <xsl:variable name="match" select="$report/primary-match[1]"/>
  <xsl:variable name="other" select="$report/possible-match[1]"/>

  <xsl:variable name="known" select="$report/primary-match | $report/possible-match | $report/summary-data
                                     | $report/score-data | $report/area-level-risk"/>
  <xsl:variable name="foreign" select="$report/file-id | $report/company | $report/company-report
      | $report[*][not($known)] | $response[not($report)]/licencecheck-report
      | $response[not($report)]/moj-fines-report | $response/company-selection-list"/>
  <xsl:variable name="mine" select="$report"/>
  <xsl:variable name="found" select="$response/org-id-result"/>
  <xsl:variable name="searched" select="$found or $bureau-service/BCAservice-code = 'BCA020'"/>

  <xsl:template name="report-kind">Credit report</xsl:template>

  <xsl:template name="report-title">
    <xsl:variable name="name"><xsl:apply-templates select="$match/individual[1]" mode="name"/></xsl:variable>
    <xsl:value-of select="$name"/>
    <xsl:if test="not(string($name)) and $match">Unnamed file</xsl:if>
    <xsl:if test="not($match)">No matching file</xsl:if>
  </xsl:template>

  <xsl:template name="report-lede">
    <xsl:call-template name="whose">
      <xsl:with-param name="born" select="$match/individual/date-of-birth"/>
      <xsl:with-param name="file" select="$match/bureau-reference"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="report-contents">
    <xsl:call-template name="report-parts"><xsl:with-param name="as">links</xsl:with-param></xsl:call-template>
    <xsl:if test="$other"><li><a href="#possible-match">Possible match</a></li></xsl:if>
  </xsl:template>

  <xsl:template name="report-body">
    <xsl:call-template name="overview"/>
    <xsl:call-template name="report-parts"/>
    <xsl:apply-templates select="$other" mode="other"/>
  </xsl:template>

  <!-- The primary match's parts, then the report's own. -->
  <xsl:template name="report-parts">
    <xsl:param name="as"/>
    <xsl:for-each select="$match">
      <xsl:call-template name="parts"><xsl:with-param name="as" select="$as"/></xsl:call-template>
    </xsl:for-each>
    <xsl:for-each select="$report">
      <xsl:call-template name="part">
        <xsl:with-param name="id">totals</xsl:with-param>
        <xsl:with-param name="title">Summary data</xsl:with-param>
        <xsl:with-param name="of" select="summary-data/summary[normalize-space()]"/>
        <xsl:with-param name="as" select="$as"/>
      </xsl:call-template>
      <xsl:call-template name="part">
        <xsl:with-param name="id">score</xsl:with-param>
        <xsl:with-param name="title">Score</xsl:with-param>
        <xsl:with-param name="of" select="score-data/score | area-level-risk | score-data/area-level-risk"/>
        <xsl:with-param name="as" select="$as"/>
      </xsl:call-template>
    </xsl:for-each>
  </xsl:template>

  <!-- The parts of a matched file. -->
  <xsl:template name="parts">
    <xsl:param name="level" select="2"/>
    <xsl:param name="as"/>
    <xsl:call-template name="part">
      <xsl:with-param name="id">person</xsl:with-param>
      <xsl:with-param name="level" select="$level"/>
      <xsl:with-param name="title">Person</xsl:with-param>
      <xsl:with-param name="of" select="individual"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
    <xsl:call-template name="part">
      <xsl:with-param name="id">consumer</xsl:with-param>
      <xsl:with-param name="level" select="$level"/>
      <xsl:with-param name="title">Consumer credit file</xsl:with-param>
      <xsl:with-param name="of" select="individual-consumer-credit-file/*"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
    <xsl:call-template name="part">
      <xsl:with-param name="id">commercial</xsl:with-param>
      <xsl:with-param name="level" select="$level"/>
      <xsl:with-param name="title">Commercial credit file</xsl:with-param>
      <xsl:with-param name="of" select="individual-commercial-credit-file/*"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
    <xsl:call-template name="part">
      <xsl:with-param name="id">public</xsl:with-param>
      <xsl:with-param name="level" select="$level"/>
      <xsl:with-param name="title">Public data</xsl:with-param>
      <xsl:with-param name="of" select="individual-public-data-file/*"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="part-body">
    <xsl:param name="id"/>
    <xsl:param name="level"/>
    <xsl:choose>
      <xsl:when test="$id = 'person'">
        <xsl:for-each select="individual[1]">
          <xsl:call-template name="person"><xsl:with-param name="level" select="$level"/></xsl:call-template>
        </xsl:for-each>
      </xsl:when>
      <xsl:when test="$id = 'consumer' or $id = 'commercial'">
        <xsl:for-each select="individual-consumer-credit-file[$id = 'consumer']
                              | individual-commercial-credit-file[$id = 'commercial']">
          <xsl:call-template name="credit-file"><xsl:with-param name="level" select="$level"/></xsl:call-template>
        </xsl:for-each>
      </xsl:when>
      <xsl:when test="$id = 'public'">
        <xsl:for-each select="individual-public-data-file">
          <xsl:call-template name="public-file"><xsl:with-param name="level" select="$level"/></xsl:call-template>
        </xsl:for-each>
      </xsl:when>
      <xsl:when test="$id = 'totals'">
        <xsl:call-template name="totals"><xsl:with-param name="items" select="summary-data/summary"/></xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:call-template name="score"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

</xsl:stylesheet>
