<?xml version="1.0" encoding="utf-8"?>
<!-- The kinds of records of a New Zealand report, as each layout's statistics count them. Sets are
     chosen by what is in a record, never by looking it up in another set: that takes the square of
     their size. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:variable name="counted-insolvencies">|TYPNP|TYPRM|TYPSO|TYPVL|TYPCL|TYPIL|</xsl:variable>

  <!-- Of a director's report those of the director; otherwise those of the whole report: the company's,
       or the person's, and the directors' where they are counted with the company's. -->
  <xsl:template name="kinds">
    <xsl:param name="as"/>
    <xsl:variable name="first-layout" select="$layout = 'b2bay'"/>
    <xsl:variable name="vedaxml" select="$layout = 'vedaxml'"/>
    <xsl:variable name="director" select="boolean(self::director-report)"/>
    <xsl:variable name="people" select="self::director-report | $person[not($director)]
                                        | $directors[not($director) and $directors-counted = 'yes']"/>
    <xsl:variable name="of-company" select="$company-files[not($director)]"/>
    <xsl:variable name="statistics" select="$counted-files[not($director)]"/>

    <xsl:variable name="company-defaults" select="$company-default-files[not($director)]/company-default"/>
    <xsl:variable name="left-out-defaults" select="$company-default-files[not($director)][count(.. | $statistics) != count($statistics)]/company-default"/>
    <xsl:variable name="counted-defaults" select="$statistics/company-default-file/company-default"/>
    <xsl:variable name="defaults" select="$people/default-file/default"/>
    <xsl:variable name="unpaid" select="$defaults[translate(default-balance, '$, ', '') &gt; 0
                                                  or translate(default-balance-amount, '$, ', '') &gt; 0]"/>
    <xsl:call-template name="kind">
      <xsl:with-param name="as" select="$as"/>
      <xsl:with-param name="label">Defaults</xsl:with-param>
      <xsl:with-param name="records" select="$company-defaults | $defaults"/>
      <xsl:with-param name="dates" select="$company-defaults/@create-date | $defaults/@create-date[$first-layout]
                                           | $defaults/load-date[not($first-layout)]"/>
      <xsl:with-param name="adverse" select="$counted-defaults | $defaults"/>
      <xsl:with-param name="open" select="$counted-defaults[translate(default-balance, '$, ', '') &gt; 0] | $unpaid"/>
      <xsl:with-param name="open-dates" select="$company-defaults[translate(default-balance, '$, ', '') &gt; 0]/@create-date
          | $unpaid/@create-date[$first-layout] | $unpaid/load-date[not($first-layout)]"/>
      <xsl:with-param name="beside" select="$left-out-defaults"/>
      <xsl:with-param name="beside-open" select="$left-out-defaults[translate(default-balance, '$, ', '') &gt; 0]"/>
      <xsl:with-param name="listed" select="($company-defaults | $defaults)/default-amount | $defaults/default-original-amount"/>
      <xsl:with-param name="owed" select="$counted-defaults/default-balance | $defaults/default-balance
                                          | $defaults/default-balance-amount"/>
      <xsl:with-param name="apart" select="$left-out-defaults/default-balance"/>
    </xsl:call-template>

    <xsl:choose>
      <xsl:when test="$first-layout">
        <xsl:variable name="collections" select="$people/collection-file/collection"/>
        <xsl:variable name="company-collections" select="$of-company/company-collection-file/company-collection"/>
        <xsl:call-template name="kind">
          <xsl:with-param name="as" select="$as"/>
          <xsl:with-param name="label">Collections</xsl:with-param>
          <xsl:with-param name="records" select="$collections | $company-collections"/>
          <xsl:with-param name="dates" select="($collections | $company-collections)/@create-date"/>
          <xsl:with-param name="adverse" select="$collections | $company-collections"/>
          <xsl:with-param name="untold" select="$collections | $company-collections"/>
          <xsl:with-param name="tells" select="false()"/>
          <xsl:with-param name="open-dates" select="($collections | $company-collections)
              [translate(collection-balance, '$, ', '') &gt; 0]/@create-date"/>
          <xsl:with-param name="listed" select="($collections | $company-collections)/collection-amount"/>
          <xsl:with-param name="owed" select="$collections/collection-balance"/>
          <xsl:with-param name="apart" select="$company-collections/collection-balance"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise>
        <xsl:variable name="passed-on" select="$people/default-collection-agency-file/default"/>
        <xsl:variable name="unpaid-there" select="$passed-on[translate(default-balance-amount, '$, ', '') &gt; 0]"/>
        <xsl:if test="$people">
          <xsl:call-template name="kind">
            <xsl:with-param name="as" select="$as"/>
            <xsl:with-param name="label">Defaults (collection agency)</xsl:with-param>
            <xsl:with-param name="records" select="$passed-on"/>
            <xsl:with-param name="dates" select="$passed-on/load-date"/>
            <xsl:with-param name="adverse" select="$passed-on"/>
            <xsl:with-param name="open" select="$unpaid-there"/>
            <xsl:with-param name="open-dates" select="$unpaid-there/load-date"/>
            <xsl:with-param name="listed" select="$passed-on/default-original-amount"/>
            <xsl:with-param name="owed" select="$passed-on/default-balance-amount"/>
          </xsl:call-template>
        </xsl:if>
        <xsl:variable name="left-out" select="$of-company/company-collection-file/company-collection"/>
        <xsl:variable name="left-out-open" select="$left-out[translate(collection-balance, '$, ', '') &gt; 0]"/>
        <xsl:if test="$left-out">
          <xsl:call-template name="kind">
            <xsl:with-param name="as" select="$as"/>
            <xsl:with-param name="label">Collections</xsl:with-param>
            <xsl:with-param name="records" select="$left-out"/>
            <xsl:with-param name="dates" select="$left-out/@create-date"/>
            <xsl:with-param name="beside" select="$left-out"/>
            <xsl:with-param name="beside-open" select="$left-out-open"/>
            <xsl:with-param name="open-dates" select="$left-out-open/@create-date"/>
            <xsl:with-param name="listed" select="$left-out/collection-amount"/>
            <xsl:with-param name="apart" select="$left-out/collection-balance"/>
          </xsl:call-template>
        </xsl:if>
      </xsl:otherwise>
    </xsl:choose>

    <xsl:variable name="judgements" select="$people/judgement-file/judgement"/>
    <xsl:variable name="company-judgements" select="$company-judgement-files[not($director)]/company-judgement"/>
    <xsl:variable name="counted-judgements" select="$statistics/company-judgement-file/company-judgement"/>
    <xsl:variable name="standing" select="$judgements[$vedaxml][not(normalize-space(judgement-status/@code))]"/>
    <xsl:variable name="open-judgements" select="$standing[translate(judgement-amount, '$, ', '') &gt; 0]"/>
    <xsl:call-template name="kind">
      <xsl:with-param name="as" select="$as"/>
      <xsl:with-param name="label">Judgements</xsl:with-param>
      <xsl:with-param name="records" select="$judgements | $company-judgements"/>
      <xsl:with-param name="dates" select="$company-judgements/publication-date
          | $judgements/publication-date[$first-layout] | $judgements/load-date[not($first-layout)]"/>
      <xsl:with-param name="adverse" select="$judgements | $counted-judgements"/>
      <xsl:with-param name="open" select="$open-judgements"/>
      <xsl:with-param name="open-dates" select="$open-judgements/load-date"/>
      <xsl:with-param name="untold" select="$counted-judgements | $judgements[not($vedaxml)]"/>
      <xsl:with-param name="tells" select="$vedaxml and $people"/>
      <xsl:with-param name="beside" select="$company-judgement-files[not($director)][count(.. | $statistics) != count($statistics)]/company-judgement"/>
      <xsl:with-param name="listed" select="($judgements | $company-judgements)/judgement-amount"/>
      <!-- Version 2 takes a judgement with a status for one that is owed. -->
      <xsl:with-param name="owed" select="$standing/judgement-amount
          | $judgements[$layout = 'b2bay-2'][normalize-space(judgement-status/@code)]/judgement-amount"/>
    </xsl:call-template>

    <xsl:if test="$people">
      <xsl:variable name="insolvencies" select="$people[$vedaxml]/insolvency-file/insolvency"/>
      <xsl:variable name="bankruptcies" select="$people/bankruptcy-file/bankruptcy"/>
      <xsl:variable name="counted" select="$insolvencies[contains($counted-insolvencies,
              concat('|', translate(insolvency-type/@code, $small, $capital), '|')) and insolvency-type/@code != '']
          | $bankruptcies[not($vedaxml) or not(../../insolvency-file/insolvency)]"/>
      <xsl:variable name="others" select="$insolvencies[not(contains($counted-insolvencies,
              concat('|', translate(insolvency-type/@code, $small, $capital), '|')) and insolvency-type/@code != '')]
          | $bankruptcies[$vedaxml and ../../insolvency-file/insolvency]"/>
      <xsl:variable name="undischarged" select="$counted[self::insolvency][not(discharged-date)]
          | $counted[self::bankruptcy][not($first-layout)][not(date-discharged)]
          | $counted[self::bankruptcy][$first-layout][not(@date-discharged)]"/>
      <xsl:variable name="others-open" select="$others[self::insolvency][not(discharged-date)]
                                               | $others[self::bankruptcy][not(date-discharged)]"/>
      <xsl:call-template name="kind">
        <xsl:with-param name="as" select="$as"/>
        <xsl:with-param name="label">
          <xsl:if test="$vedaxml">Insolvencies and bankruptcies</xsl:if>
          <xsl:if test="not($vedaxml)">Bankruptcies</xsl:if>
        </xsl:with-param>
        <xsl:with-param name="records" select="$counted"/>
        <xsl:with-param name="dates" select="$counted[self::insolvency]/adjudication-date
            | $counted[self::bankruptcy]/load-date[not($first-layout)]
            | $counted/publication-date[$first-layout]"/>
        <xsl:with-param name="adverse" select="$counted"/>
        <xsl:with-param name="open" select="$undischarged"/>
        <xsl:with-param name="open-dates" select="$undischarged[self::insolvency]/adjudication-date
            | $undischarged[self::bankruptcy]/load-date[not($first-layout)]
            | $undischarged/publication-date[$first-layout]"/>
      </xsl:call-template>
      <xsl:if test="$others">
        <xsl:call-template name="kind">
          <xsl:with-param name="as" select="$as"/>
          <xsl:with-param name="label">Other insolvencies, bankruptcies</xsl:with-param>
          <xsl:with-param name="records" select="$others"/>
          <xsl:with-param name="dates" select="$others[self::insolvency]/adjudication-date | $others[self::bankruptcy]/load-date"/>
          <xsl:with-param name="beside" select="$others"/>
          <xsl:with-param name="beside-open" select="$others-open"/>
          <xsl:with-param name="open-dates" select="$others-open[self::insolvency]/adjudication-date | $others-open[self::bankruptcy]/load-date"/>
        </xsl:call-template>
      </xsl:if>
    </xsl:if>

    <xsl:variable name="of-notices" select="$notices[not($director)]"/>
    <xsl:variable name="adverse-notices" select="$of-notices[translate(adverse/@indicator, $small, $capital) = 'YES']"/>
    <xsl:variable name="counts-notices" select="$adverse-notices[not($first-layout)]
                                                [count(../.. | $statistics) = count($statistics)]"/>
    <xsl:variable name="personal-notices" select="$people/public-notice-file/public-notice"/>
    <xsl:call-template name="kind">
      <xsl:with-param name="as" select="$as"/>
      <xsl:with-param name="label">Public notices</xsl:with-param>
      <xsl:with-param name="records" select="$of-notices | $personal-notices"/>
      <xsl:with-param name="dates" select="$of-notices/@create-date | $personal-notices/load-date[not($first-layout)]
                                           | $personal-notices/publication-date[$first-layout]"/>
      <xsl:with-param name="adverse" select="$counts-notices"/>
      <xsl:with-param name="beside" select="$adverse-notices[$first-layout
                                            or count(../.. | $statistics) != count($statistics)]"/>
      <xsl:with-param name="ends" select="false()"/>
    </xsl:call-template>

    <xsl:variable name="gazetted" select="$of-company/mercantile-gazette-file/company-mercantile-gazette
                                          | $people/name-only-file/mercantile-gazette"/>
    <xsl:if test="$gazetted">
      <xsl:call-template name="kind">
        <xsl:with-param name="as" select="$as"/>
        <xsl:with-param name="label">Gazette notices</xsl:with-param>
        <xsl:with-param name="records" select="$gazetted"/>
        <xsl:with-param name="dates" select="$gazetted/publication-date"/>
        <xsl:with-param name="beside" select="$gazetted[translate(adverse/@indicator, $small, $capital) = 'YES']"/>
        <xsl:with-param name="ends" select="false()"/>
      </xsl:call-template>
    </xsl:if>

    <xsl:variable name="enquiries" select="$company-credit-files[not($director)]/company-credit-enquirer
                                           | $people/credit-file/credit-enquiry"/>
    <xsl:call-template name="kind">
      <xsl:with-param name="as" select="$as"/>
      <xsl:with-param name="label">Enquiries</xsl:with-param>
      <xsl:with-param name="records" select="$enquiries"/>
      <xsl:with-param name="dates" select="$enquiries/@enquiry-date | $enquiries[self::credit-enquiry]/@create-date"/>
    </xsl:call-template>
  </xsl:template>

</xsl:stylesheet>
