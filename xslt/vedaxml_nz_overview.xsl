<?xml version="1.0" encoding="utf-8"?>
<!-- The box at the top: what was matched, the score, and how many adverse records there are. What
     counts as paid or discharged is counted as the component's own statistics count it. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:template name="person-overview">
    <xsl:variable name="fines" select="$response/moj-fines-report/moj-overdue-fines-balance/fines-amount"/>
    <section class="panel overview" aria-labelledby="overview">
      <h2 id="overview">Overview</h2>
      <xsl:call-template name="bureau-message"/>
      <xsl:for-each select="$report"><xsl:call-template name="person-verdict"/></xsl:for-each>
      <xsl:if test="not($report)"><p class="say">The bureau's reply has no matching file.</p></xsl:if>
      <xsl:if test="$fines &gt; 0">
        <p class="say warn">
          <strong>Overdue fines of
            <xsl:call-template name="amount">
              <xsl:with-param name="text" select="normalize-space($fines)"/>
            </xsl:call-template>
          </strong>
          <xsl:text>See </xsl:text><a href="#fines">Ministry of Justice fines</a><xsl:text>.</xsl:text>
        </p>
      </xsl:if>
      <xsl:if test="$report/lost-stolen-id-file/lost-stolen-id">
        <p class="say warn">
          <strong>Identification is reported lost or stolen</strong>
          <xsl:text>Confirm the identity of the applicant. See </xsl:text>
          <a href="#public">Public record</a><xsl:text>.</xsl:text>
        </p>
      </xsl:if>
      <xsl:for-each select="$report">
        <xsl:call-template name="tiles">
          <xsl:with-param name="enquiries" select="credit-file/credit-enquiry"/>
        </xsl:call-template>
        <xsl:call-template name="person-counts"/>
      </xsl:for-each>
    </section>
  </xsl:template>

  <xsl:template name="company-overview">
    <xsl:variable name="defaults" select="$company/company-default-file/company-default"/>
    <xsl:variable name="judgements" select="$company/company-judgement-file/company-judgement"/>
    <xsl:variable name="adverse" select="$notices[translate(adverse/@indicator, $small, $capital) = 'YES']"/>
    <xsl:variable name="others" select="$directors/default-file/default
        | $directors/default-collection-agency-file/default | $directors/judgement-file/judgement
        | $directors/insolvency-file/insolvency | $directors/bankruptcy-file/bankruptcy"/>
    <section class="panel overview" aria-labelledby="overview">
      <h2 id="overview">Overview</h2>
      <xsl:call-template name="bureau-message"/>
      <xsl:for-each select="$company">
        <xsl:call-template name="verdict">
          <xsl:with-param name="adverse" select="$defaults | $judgements | $adverse"/>
          <xsl:with-param name="known" select="company"/>
          <xsl:with-param name="looked-at">defaults, judgements, adverse public notices</xsl:with-param>
        </xsl:call-template>
      </xsl:for-each>
      <xsl:call-template name="tiles">
        <xsl:with-param name="enquiries" select="$company/company-credit-file/company-credit-enquirer"/>
      </xsl:call-template>
      <xsl:if test="$defaults | $judgements | $notices">
        <xsl:call-template name="counts-table">
          <xsl:with-param name="caption">Records of the company; open are defaults that are not paid and notices that are adverse</xsl:with-param>
          <xsl:with-param name="rows">
            <xsl:call-template name="money-row">
              <xsl:with-param name="label">Defaults</xsl:with-param>
              <xsl:with-param name="records" select="$defaults"/>
              <xsl:with-param name="listed" select="$defaults/default-amount"/>
              <xsl:with-param name="owed" select="$defaults/default-balance[number() &gt; 0]"/>
            </xsl:call-template>
            <xsl:call-template name="count-row">
              <xsl:with-param name="label">Judgements</xsl:with-param>
              <xsl:with-param name="records" select="$judgements"/>
              <xsl:with-param name="listed"
                              select="sum($judgements/judgement-amount[number() = number()])"/>
            </xsl:call-template>
            <xsl:call-template name="count-row">
              <xsl:with-param name="label">Public notices</xsl:with-param>
              <xsl:with-param name="records" select="$notices"/>
              <xsl:with-param name="open" select="count($adverse)"/>
            </xsl:call-template>
          </xsl:with-param>
        </xsl:call-template>
      </xsl:if>
      <xsl:if test="$others">
        <p class="say warn">
          <strong>
            <xsl:text>The directors have </xsl:text>
            <xsl:call-template name="counted">
              <xsl:with-param name="count" select="count($others)"/>
              <xsl:with-param name="noun">adverse record</xsl:with-param>
            </xsl:call-template>
            <xsl:text> of their own</xsl:text>
          </strong>
          <xsl:text>They are not counted above.</xsl:text>
        </p>
      </xsl:if>
      <xsl:call-template name="directors-table"/>
    </section>
  </xsl:template>

  <!-- Each director's records, and a link to the report. -->
  <xsl:template name="directors-table">
    <xsl:if test="$directors">
      <xsl:call-template name="field-table">
        <xsl:with-param name="level" select="3"/>
        <xsl:with-param name="title">Directors</xsl:with-param>
        <xsl:with-param name="records" select="$directors"/>
        <xsl:with-param name="fields">
          Director = . as made;
          Bureau file number = file-id;
          Match type = file-id/@match-type as word;
          $Enquiries = credit-file as counted;
          $Adverse records = . as counted;
        </xsl:with-param>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <xsl:template match="director-report" mode="made">
    <xsl:variable name="number" select="1 + count(preceding-sibling::director-report)"/>
    <xsl:variable name="name"><xsl:apply-templates select="individual[1]" mode="name"/></xsl:variable>
    <a href="#director-{$number}">
      <xsl:value-of select="$name"/>
      <xsl:if test="not(string($name))"><xsl:value-of select="concat('Director ', $number)"/></xsl:if>
    </a>
  </xsl:template>

  <xsl:template match="credit-file" mode="counted">
    <xsl:value-of select="count(credit-enquiry)"/>
  </xsl:template>
  <xsl:template match="director-report" mode="counted">
    <xsl:value-of select="count(default-file/default | default-collection-agency-file/default
        | judgement-file/judgement | insolvency-file/insolvency | bankruptcy-file/bankruptcy)"/>
  </xsl:template>

  <xsl:template name="bureau-message">
    <xsl:if test="normalize-space($response/general-message)">
      <p class="say">
        <strong>The bureau's message</strong>
        <xsl:value-of select="normalize-space($response/general-message)"/>
      </p>
    </xsl:if>
  </xsl:template>

  <xsl:template name="tiles">
    <xsl:param name="enquiries"/>
    <dl class="facts tiles">
      <xsl:call-template name="each-field">
        <xsl:with-param name="shape">fact</xsl:with-param>
        <xsl:with-param name="fields">
          Match type = file-id/@match-type as word;
          Bureau file number = file-id;
          Company status = company/company/company-details/company-status;
          Company status = company-report/company/company-details/company-status;
        </xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Credit enquiries on file</xsl:with-param>
        <xsl:with-param name="value" select="count($enquiries)"/>
      </xsl:call-template>
      <xsl:for-each select="negative-block/characteristic[@name = 'age-of-oldest-file'][last()]">
        <xsl:call-template name="fact">
          <xsl:with-param name="label">Age of oldest file</xsl:with-param>
          <xsl:with-param name="value"><xsl:apply-templates select="." mode="typed"/></xsl:with-param>
        </xsl:call-template>
      </xsl:for-each>
      <xsl:call-template name="each-field">
        <xsl:with-param name="shape">fact</xsl:with-param>
        <xsl:with-param name="fields">
          Score: relative risk index = score-data/relative-risk-index as number;
          Score: relative risk = score-data/relative-risk as number;
          Score: risk odds = score-data/risk-odds as number;
        </xsl:with-param>
      </xsl:call-template>
    </dl>
  </xsl:template>

  <!-- The verdict on a person, the applicant or a director. -->
  <xsl:template name="person-verdict">
    <xsl:call-template name="verdict">
      <xsl:with-param name="adverse" select="default-file/default
          | default-collection-agency-file/default | judgement-file/judgement
          | insolvency-file/insolvency | bankruptcy-file/bankruptcy"/>
      <xsl:with-param name="known" select="*"/>
      <xsl:with-param name="looked-at">defaults, judgements, insolvencies, bankruptcies</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <!-- "No adverse records" is said of a file that is there and holds none, and never against the
       bureau's own totals. -->
  <xsl:template name="verdict">
    <xsl:param name="adverse"/>
    <xsl:param name="known"/>
    <xsl:param name="looked-at"/>
    <xsl:variable name="totals">
      <xsl:apply-templates select="summary-data/summary | negative-block/characteristic" mode="adverse"/>
    </xsl:variable>
    <xsl:choose>
      <xsl:when test="$adverse">
        <p class="say bad"><strong>
          <xsl:call-template name="counted">
            <xsl:with-param name="count" select="count($adverse)"/>
            <xsl:with-param name="noun">adverse record</xsl:with-param>
          </xsl:call-template>
        </strong></p>
      </xsl:when>
      <xsl:when test="string($totals)">
        <p class="say warn">
          <strong>No adverse records are listed, but the bureau's totals speak of some</strong>
          <xsl:value-of select="concat('The totals: ', substring($totals, 3), '.')"/>
        </p>
      </xsl:when>
      <xsl:when test="$known">
        <p class="say good">
          <strong>No adverse records</strong>
          <xsl:value-of select="concat('Looked for: ', $looked-at, '.')"/>
        </p>
      </xsl:when>
      <xsl:otherwise><p class="say">The bureau's reply has no matching file.</p></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="person-counts">
    <xsl:variable name="insolvencies" select="insolvency-file/insolvency"/>
    <xsl:variable name="bankruptcies" select="bankruptcy-file/bankruptcy"/>
    <xsl:variable name="defaults" select="default-file/default"/>
    <xsl:variable name="collections" select="default-collection-agency-file/default"/>
    <xsl:variable name="judgements" select="judgement-file/judgement"/>
    <xsl:variable name="notices-of-person" select="public-notice-file/public-notice"/>
    <xsl:if test="$insolvencies | $bankruptcies | $defaults | $collections | $judgements
                  | $notices-of-person">
      <xsl:call-template name="counts-table">
        <xsl:with-param name="caption">Records of the matched file; open are those not paid or without a date of discharge</xsl:with-param>
        <xsl:with-param name="rows">
          <xsl:call-template name="money-row">
            <xsl:with-param name="label">Defaults</xsl:with-param>
            <xsl:with-param name="records" select="$defaults"/>
            <xsl:with-param name="listed" select="$defaults/default-original-amount"/>
            <xsl:with-param name="owed" select="$defaults/default-balance-amount[number() &gt; 0]"/>
          </xsl:call-template>
          <xsl:call-template name="money-row">
            <xsl:with-param name="label">Defaults (collection agency)</xsl:with-param>
            <xsl:with-param name="records" select="$collections"/>
            <xsl:with-param name="listed" select="$collections/default-original-amount"/>
            <xsl:with-param name="owed" select="$collections/default-balance-amount[number() &gt; 0]"/>
          </xsl:call-template>
          <xsl:call-template name="money-row">
            <xsl:with-param name="label">Judgements</xsl:with-param>
            <xsl:with-param name="records" select="$judgements"/>
            <xsl:with-param name="listed" select="$judgements/judgement-amount"/>
            <xsl:with-param name="owed" select="$judgements[not(normalize-space(judgement-status/@code))]
                                                /judgement-amount[number() &gt; 0]"/>
          </xsl:call-template>
          <xsl:call-template name="count-row">
            <xsl:with-param name="label">Insolvencies</xsl:with-param>
            <xsl:with-param name="records" select="$insolvencies"/>
            <xsl:with-param name="open" select="count($insolvencies[not(discharged-date)])"/>
          </xsl:call-template>
          <xsl:call-template name="count-row">
            <xsl:with-param name="label">Bankruptcies</xsl:with-param>
            <xsl:with-param name="records" select="$bankruptcies"/>
            <xsl:with-param name="open" select="count($bankruptcies[not(date-discharged)])"/>
          </xsl:call-template>
          <xsl:call-template name="count-row">
            <xsl:with-param name="label">Public notices</xsl:with-param>
            <xsl:with-param name="records" select="$notices-of-person"/>
          </xsl:call-template>
        </xsl:with-param>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

</xsl:stylesheet>
