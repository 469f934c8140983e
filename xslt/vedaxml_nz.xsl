<?xml version="1.0" encoding="utf-8"?>
<!-- A reply of VedaXML New Zealand as a page for credit officers: a report on a person or on a
     company, with or without its directors, the companies of a search, or the bureau's refusal. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:include href="common.xsl"/>
  <xsl:include href="sections.xsl"/>
  <xsl:include href="fields.xsl"/>
  <xsl:include href="replies.xsl"/>
  <xsl:include href="vedaxml_nz_codes.xsl"/>
  <xsl:include href="vedaxml_nz_overview.xsl"/>
  <xsl:include href="vedaxml_nz_person.xsl"/>
  <xsl:include href="vedaxml_nz_company.xsl"/>
  <xsl:include href="vedaxml_nz_checks.xsl"/>

  <xsl:variable name="lang">en-NZ</xsl:variable>
  <xsl:variable name="country">New Zealand</xsl:variable>
  <xsl:variable name="response" select="/BCAmessage/BCAservices/BCAservice/BCAservice-data/response"/>
  <xsl:variable name="report" select="$response/enquiry-report[1]"/>

  <!-- The company's files; with directors they stand one level lower. Empty for a person. -->
  <xsl:variable name="directed" select="$report[not(company)]/company-report[1][company]"/>
  <xsl:variable name="company" select="$report/company[1] | $directed"/>
  <xsl:variable name="directors" select="$report[$directed]/director-report"/>

  <xsl:template match="/">
    <xsl:variable name="refusals" select="//BCAservice-data/BCAerror | //BCAservice-data/response/error"/>
    <xsl:variable name="list" select="$response/company-selection-list"/>
    <xsl:choose>
      <xsl:when test="$refusals">
        <xsl:call-template name="refusal-page">
          <xsl:with-param name="refusals" select="$refusals"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:when test="$company"><xsl:apply-templates select="$report" mode="company"/></xsl:when>
      <xsl:when test="$report or $response/licencecheck-report or $response/moj-fines-report">
        <xsl:apply-templates select="$response" mode="person"/>
      </xsl:when>
      <xsl:when test="$list">
        <xsl:call-template name="companies-page">
          <xsl:with-param name="found" select="$list/company-selection-list-details"/>
          <xsl:with-param name="table">
            <xsl:call-template name="field-table">
              <xsl:with-param name="level" select="2"/>
              <xsl:with-param name="title">Companies</xsl:with-param>
              <xsl:with-param name="records" select="$list/company-selection-list-details"/>
              <xsl:with-param name="fields">
                Company = company-name;
                Name type = company-name-type;
                Number = registration-number;
                Status = company-status;
                Registration area = registration-area;
              </xsl:with-param>
            </xsl:call-template>
          </xsl:with-param>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:call-template name="nothing-page"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="response" mode="person">
    <xsl:variable name="name"><xsl:apply-templates select="$report/individual[1]" mode="name"/></xsl:variable>
    <xsl:call-template name="report-page">
      <xsl:with-param name="eyebrow">Credit report</xsl:with-param>
      <xsl:with-param name="title">
        <xsl:value-of select="$name"/>
        <xsl:if test="not(string($name)) and $report/*">Unnamed file</xsl:if>
        <xsl:if test="not(string($name)) and not($report/*)">No matching file</xsl:if>
      </xsl:with-param>
      <xsl:with-param name="lede"><xsl:apply-templates select="$report" mode="lede"/></xsl:with-param>
      <xsl:with-param name="contents">
        <xsl:apply-templates select="$report/individual[1]" mode="contents"/>
        <xsl:apply-templates select="$report/identity-verification[*][1]" mode="contents"/>
        <xsl:apply-templates select="($report/default-file | $report/default-collection-agency-file
            | $report/credit-file | $report/note-file)[*][1]" mode="contents"/>
        <xsl:apply-templates select="($report/judgement-file | $report/insolvency-file
            | $report/bankruptcy-file | $report/public-notice-file | $report/lost-stolen-id-file
            | $report/company-officer-details)[*][1]" mode="contents"/>
        <xsl:apply-templates select="$report/summary-data[*][1]" mode="contents"/>
        <xsl:apply-templates select="$report/negative-block[*][1]" mode="contents"/>
        <xsl:apply-templates select="$report/score-data[*][1]" mode="contents"/>
        <xsl:apply-templates select="licencecheck-report[1] | moj-fines-report[1]" mode="contents"/>
      </xsl:with-param>
      <xsl:with-param name="body">
        <xsl:call-template name="person-overview"/>
        <xsl:for-each select="$report"><xsl:call-template name="person-files"/></xsl:for-each>
        <xsl:apply-templates select="licencecheck-report[1] | moj-fines-report[1]"/>
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="enquiry-report" mode="company">
    <xsl:variable name="name" select="normalize-space($company/company/company-name)"/>
    <xsl:variable name="number" select="normalize-space($company/company/registration-number)"/>
    <xsl:call-template name="report-page">
      <xsl:with-param name="eyebrow">Company credit report</xsl:with-param>
      <xsl:with-param name="title">
        <xsl:value-of select="$name"/>
        <xsl:if test="not($name)">Unnamed company</xsl:if>
      </xsl:with-param>
      <xsl:with-param name="lede">
        <xsl:if test="$number"><xsl:value-of select="concat('Company number ', $number)"/></xsl:if>
        <xsl:if test="$number and normalize-space(file-id)">, </xsl:if>
        <xsl:apply-templates select="." mode="lede"/>
      </xsl:with-param>
      <xsl:with-param name="contents">
        <xsl:apply-templates select="$company/company[*][1]" mode="contents"/>
        <xsl:apply-templates select="($company/company-shares | $company/company-officers)[*][1]"
                             mode="contents"/>
        <xsl:apply-templates select="($company/company-default-file | $company/company-credit-file
            | $company/company-credit-reference-file)[*][1]" mode="contents"/>
        <xsl:apply-templates select="($company/company-judgement-file | $company/document-history
            | $company/company-public-notice-file | $company/known-affiliation)[*][1]" mode="contents"/>
        <xsl:apply-templates select="$company/summary-data[*][1] | $directors" mode="contents"/>
      </xsl:with-param>
      <xsl:with-param name="body">
        <xsl:call-template name="company-overview"/>
        <xsl:for-each select="$company"><xsl:call-template name="company-files"/></xsl:for-each>
        <xsl:apply-templates select="$directors"/>
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="enquiry-report" mode="lede">
    <xsl:variable name="born" select="normalize-space(individual/date-of-birth)"/>
    <xsl:variable name="file" select="normalize-space(file-id)"/>
    <xsl:if test="$born">
      <xsl:text>Born </xsl:text>
      <xsl:call-template name="date"><xsl:with-param name="text" select="$born"/></xsl:call-template>
      <xsl:if test="$file">, </xsl:if>
    </xsl:if>
    <xsl:if test="$file"><xsl:value-of select="concat('bureau file ', $file)"/></xsl:if>
  </xsl:template>

  <!-- The links at the top, to what is really there: one a part, from the first of its files. -->
  <xsl:template match="*" mode="contents"/>
  <xsl:template match="individual" mode="contents"><li><a href="#person">Person</a></li></xsl:template>
  <xsl:template match="identity-verification" mode="contents">
    <li><a href="#verification">Verification</a></li>
  </xsl:template>
  <xsl:template mode="contents" match="default-file | default-collection-agency-file | credit-file
      | note-file | company-default-file | company-credit-file | company-credit-reference-file">
    <li><a href="#credit">Credit file</a></li>
  </xsl:template>
  <xsl:template mode="contents" match="judgement-file | insolvency-file | bankruptcy-file
      | public-notice-file | lost-stolen-id-file | company-officer-details | company-judgement-file
      | company-public-notice-file | document-history | known-affiliation">
    <li><a href="#public">Public record</a></li>
  </xsl:template>
  <xsl:template match="summary-data" mode="contents"><li><a href="#totals">Summary data</a></li></xsl:template>
  <xsl:template match="negative-block" mode="contents">
    <li><a href="#characteristics">Negative block</a></li>
  </xsl:template>
  <xsl:template match="score-data" mode="contents"><li><a href="#score">Score</a></li></xsl:template>
  <xsl:template match="licencecheck-report" mode="contents">
    <li><a href="#licence">LicenceCheck</a></li>
  </xsl:template>
  <xsl:template match="moj-fines-report" mode="contents"><li><a href="#fines">Fines</a></li></xsl:template>
  <xsl:template match="company" mode="contents"><li><a href="#company">Company</a></li></xsl:template>
  <xsl:template match="company-shares | company-officers" mode="contents">
    <li><a href="#people">Shares and officers</a></li>
  </xsl:template>
  <xsl:template match="director-report" mode="contents">
    <xsl:variable name="number" select="1 + count(preceding-sibling::director-report)"/>
    <li><a href="#director-{$number}">Director <xsl:value-of select="$number"/></a></li>
  </xsl:template>

</xsl:stylesheet>
