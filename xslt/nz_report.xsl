<?xml version="1.0" encoding="utf-8"?>
<!-- A New Zealand report, in whichever of the three layouts: VedaXML, B2Bay and B2Bay version 2. They
     are so much alike that one set of parts shows them all; the sheet of a layout says which it is
     (`$layout`: "vedaxml", "b2bay", "b2bay-2"), and has the code tables that are its own. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:include href="common.xsl"/>
  <xsl:include href="sections.xsl"/>
  <xsl:include href="counts.xsl"/>
  <xsl:include href="timeline.xsl"/>
  <xsl:include href="marks.xsl"/>
  <xsl:include href="fields.xsl"/>
  <xsl:include href="replies.xsl"/>
  <xsl:include href="nz_codes.xsl"/>
  <xsl:include href="nz_overview.xsl"/>
  <xsl:include href="nz_kinds.xsl"/>
  <xsl:include href="nz_person.xsl"/>
  <xsl:include href="nz_company.xsl"/>
  <xsl:include href="nz_checks.xsl"/>

  <xsl:variable name="lang">en-NZ</xsl:variable>
  <xsl:variable name="country">New Zealand</xsl:variable>
  <xsl:variable name="response" select="/BCAmessage/BCAservices/BCAservice/BCAservice-data/response"/>
  <xsl:variable name="report" select="$response/enquiry-report[1]"/>

  <!-- The company's registration, and the nodes whose files are the company's: the report itself, and
       one level lower a company within it or, with directors, the company's report. Empty for a
       person. The statistics of VedaXML read the report's own files only. -->
  <xsl:variable name="directed" select="$report[not(company)]/company-report[1][company]"/>
  <xsl:variable name="company" select="$report[company] | $directed"/>
  <xsl:variable name="registration" select="($report/company/company | $report/company[1][not(company)]
                                             | $directed/company)[1]"/>
  <xsl:variable name="company-files" select="$report[$company] | $report/company[1] | $directed"/>
  <xsl:variable name="counted-files" select="$report[company or $layout = 'vedaxml'][$company]
                                             | $directed[$layout != 'vedaxml']"/>
  <!-- Files that a reply has twice, where they are counted and within the company, are shown once, if
       the one is the other's copy in every value; "|company-default-file|..." are those. -->
  <xsl:variable name="uncounted-files" select="$company-files[count(. | $counted-files) != count($counted-files)]"/>
  <xsl:variable name="copies">
    <xsl:for-each select="$uncounted-files/*[self::company-default-file or self::company-judgement-file
                          or self::company-public-notice-file or self::company-credit-file]">
      <xsl:variable name="counted" select="$counted-files/*[name() = name(current())]"/>
      <xsl:if test="count($counted//*) = count(.//*) and string($counted) = string()">
        <xsl:variable name="values"><xsl:apply-templates select="@* | .//@*" mode="value"/></xsl:variable>
        <xsl:variable name="counted-values"><xsl:apply-templates select="$counted/@* | $counted//@*" mode="value"/></xsl:variable>
        <xsl:if test="string($values) = string($counted-values)"><xsl:value-of select="concat('|', name(), '|')"/></xsl:if>
      </xsl:if>
    </xsl:for-each>
  </xsl:variable>
  <xsl:template match="@*" mode="value"><xsl:value-of select="concat(name(), '=', ., '|')"/></xsl:template>
  <xsl:variable name="company-default-files" select="$counted-files/company-default-file
      | $uncounted-files/company-default-file[not(contains($copies, '|company-default-file|'))]"/>
  <xsl:variable name="company-judgement-files" select="$counted-files/company-judgement-file
      | $uncounted-files/company-judgement-file[not(contains($copies, '|company-judgement-file|'))]"/>
  <xsl:variable name="company-notice-files" select="$counted-files/company-public-notice-file
      | $uncounted-files/company-public-notice-file[not(contains($copies, '|company-public-notice-file|'))]"/>
  <xsl:variable name="company-credit-files" select="$counted-files/company-credit-file
      | $uncounted-files/company-credit-file[not(contains($copies, '|company-credit-file|'))]"/>
  <xsl:variable name="directors" select="$report[$directed]/director-report"/>
  <xsl:variable name="person" select="$report[not($company)]"/>

  <xsl:variable name="files" select="$report | $company-files | $directors"/>

  <!-- What tells the layouts apart. -->
  <xsl:variable name="other-country" select="$report/primary-match | $report/possible-match
      | $response/org-id-result"/>
  <xsl:variable name="first-b2bay" select="$files/verification | $files/spouse | $files/collection-file
      | $files/name-only-file | $files/default-file/default[default-amount or default-balance]
      | $files/judgement-file/judgement[publication-date]
      | $files/bankruptcy-file/bankruptcy[publication-date or @date-discharged]
      | $files/public-notice-file/public-notice[publication-date]
      | $files/document-history/document-details[create-date-registered or bar-code]"/>
  <xsl:variable name="second-b2bay" select="$files/mercantile-gazette-file | $files/registered-charge-file
      | $files/company-collection-file"/>
  <xsl:variable name="vedaxml-only" select="$files/insolvency-file | $files/negative-block
      | $response/licencecheck-report | $response/moj-fines-report | $response/company-selection-list"/>
  <xsl:variable name="later-layout" select="$vedaxml-only | $files/identity-verification
      | $files/default-collection-agency-file | $files/lost-stolen-id-file
      | $files/*/default[default-original-amount or default-balance-amount or load-date]
      | $files/judgement-file/judgement[load-date] | $files/bankruptcy-file/bankruptcy[load-date]
      | $files/public-notice-file/public-notice[load-date]
      | $files/document-history/document-details[date-registered or barcode]"/>

  <xsl:variable name="mine" select="$report | $response/licencecheck-report | $response/moj-fines-report"/>
  <xsl:variable name="found" select="$response/company-selection-list/company-selection-list-details"/>
  <xsl:variable name="searched" select="$response/company-selection-list"/>

  <xsl:template name="companies">
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="2"/>
      <xsl:with-param name="title">Companies</xsl:with-param>
      <xsl:with-param name="records" select="$found"/>
      <xsl:with-param name="fields">
        Company = company-name;
        Name type = company-name-type;
        Number = registration-number;
        Status = company-status as marked;
        Registration area = registration-area;
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="report-kind">
    <xsl:if test="$company">Company credit report</xsl:if>
    <xsl:if test="not($company)">Credit report</xsl:if>
  </xsl:template>

  <xsl:template name="report-title">
    <xsl:variable name="name"><xsl:apply-templates select="$person/individual[1]" mode="name"/></xsl:variable>
    <xsl:value-of select="concat($name, normalize-space($registration/company-name))"/>
    <xsl:choose>
      <xsl:when test="string($name) or normalize-space($registration/company-name)"/>
      <xsl:when test="$company">Unnamed company</xsl:when>
      <xsl:when test="$report/*">Unnamed file</xsl:when>
      <xsl:otherwise>No matching file</xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="report-lede">
    <xsl:call-template name="whose">
      <xsl:with-param name="born" select="$person/individual/date-of-birth"/>
      <xsl:with-param name="number" select="$registration/registration-number"/>
      <xsl:with-param name="file" select="($report/file-id | $company/file-id)[1]"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="report-contents">
    <xsl:call-template name="report-parts"><xsl:with-param name="as">links</xsl:with-param></xsl:call-template>
    <xsl:for-each select="$directors">
      <li><a href="#director-{position()}"><xsl:value-of select="concat('Director ', position())"/></a></li>
    </xsl:for-each>
  </xsl:template>

  <xsl:template name="report-body">
    <xsl:call-template name="overview"/>
    <xsl:call-template name="report-parts"/>
    <xsl:apply-templates select="$directors"/>
  </xsl:template>

  <xsl:template name="report-parts">
    <xsl:param name="as"/>
    <xsl:for-each select="$company">
      <xsl:call-template name="company-parts"><xsl:with-param name="as" select="$as"/></xsl:call-template>
    </xsl:for-each>
    <xsl:for-each select="$person">
      <xsl:call-template name="person-parts"><xsl:with-param name="as" select="$as"/></xsl:call-template>
    </xsl:for-each>
    <xsl:for-each select="$response[not($company)]">
      <xsl:call-template name="check-parts"><xsl:with-param name="as" select="$as"/></xsl:call-template>
    </xsl:for-each>
  </xsl:template>

  <xsl:template name="part-body">
    <xsl:param name="id"/>
    <xsl:param name="level"/>
    <xsl:choose>
      <xsl:when test="self::response">
        <xsl:apply-templates select="licencecheck-report[$id = 'licence'] | moj-fines-report[$id = 'fines']"/>
      </xsl:when>
      <xsl:when test="$company and not(self::director-report)">
        <xsl:call-template name="company-part"><xsl:with-param name="id" select="$id"/></xsl:call-template>
      </xsl:when>
      <xsl:otherwise>
        <xsl:call-template name="person-part">
          <xsl:with-param name="id" select="$id"/>
          <xsl:with-param name="level" select="$level"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

</xsl:stylesheet>
