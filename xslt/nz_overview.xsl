<?xml version="1.0" encoding="utf-8"?>
<!-- The box at the top: what counts first, then what must not be overlooked, what was matched, the
     score, how many records there are, when it happened, and the directors. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:template name="overview">
    <section class="panel overview" aria-labelledby="overview">
      <h2 id="overview">Overview</h2>
      <xsl:if test="$company">
        <xsl:call-template name="headline">
          <xsl:with-param name="of" select="$report"/>
          <xsl:with-param name="known" select="$registration"/>
          <xsl:with-param name="looked-at">defaults, judgements, adverse public notices</xsl:with-param>
          <xsl:with-param name="totals" select="$company-files/summary-data/summary"/>
        </xsl:call-template>
        <xsl:call-template name="directors-verdict"/>
      </xsl:if>
      <xsl:for-each select="$person"><xsl:call-template name="person-headline"/></xsl:for-each>
      <xsl:if test="not($report)"><p class="say">The bureau's reply has no matching file.</p></xsl:if>
      <xsl:if test="normalize-space($response/general-message)">
        <p class="say">
          <strong>The bureau's message</strong>
          <xsl:value-of select="normalize-space($response/general-message)"/>
        </p>
      </xsl:if>
      <xsl:call-template name="warnings"/>
      <xsl:for-each select="$registration">
        <xsl:call-template name="marks">
          <xsl:with-param name="of" select="company-details/company-status | $report/file-id/@match-type | $company/file-id/@match-type
              | $company-files/known-affiliation/affiliated-company/company-status"/>
        </xsl:call-template>
      </xsl:for-each>
      <xsl:for-each select="$person"><xsl:call-template name="person-marks"/></xsl:for-each>
      <xsl:for-each select="$report"><xsl:call-template name="tiles"/></xsl:for-each>
      <xsl:for-each select="$report[*]">
        <xsl:call-template name="counts-table">
          <xsl:with-param name="caption">Records of the matched file; open are those not paid or without a date of discharge</xsl:with-param>
        </xsl:call-template>
        <xsl:call-template name="timeline"/>
      </xsl:for-each>
      <xsl:call-template name="directors-table"/>
    </section>
  </xsl:template>

  <!-- What is no record of the credit file, and grave all the same. -->
  <xsl:template name="warnings">
    <xsl:variable name="fines" select="$response/moj-fines-report/moj-overdue-fines-balance/fines-amount"/>
    <xsl:if test="translate($fines, '$, ', '') &gt; 0">
      <p class="say warn">
        <strong>
          <xsl:text>Overdue fines of </xsl:text>
          <xsl:call-template name="amount">
            <xsl:with-param name="text" select="normalize-space($fines)"/>
          </xsl:call-template>
        </strong>
        <xsl:text>See </xsl:text><a href="#fines">Ministry of Justice fines</a><xsl:text>.</xsl:text>
      </p>
    </xsl:if>
    <xsl:if test="$person/lost-stolen-id-file/lost-stolen-id">
      <p class="say warn">
        <strong>Identification is reported lost or stolen</strong>
        <xsl:text>Confirm the identity of the applicant. See </xsl:text>
        <a href="#public">Public record</a><xsl:text>.</xsl:text>
      </p>
    </xsl:if>
  </xsl:template>

  <!-- The headline of a person, the applicant or a director. -->
  <xsl:template name="person-headline">
    <xsl:call-template name="headline">
      <xsl:with-param name="of" select="."/>
      <xsl:with-param name="known" select="*"/>
      <xsl:with-param name="looked-at">
        <xsl:text>defaults, </xsl:text>
        <xsl:if test="$layout = 'b2bay'">collections, </xsl:if>
        <xsl:text>judgements, </xsl:text>
        <xsl:if test="$layout = 'vedaxml'">insolvencies, </xsl:if>
        <xsl:text>bankruptcies</xsl:text>
      </xsl:with-param>
      <xsl:with-param name="totals" select="summary-data/summary | negative-block/characteristic"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="person-marks">
    <xsl:call-template name="marks">
      <xsl:with-param name="of" select="file-id/@match-type | individual/alias
          | (identity-verification | verification)/*/*[contains(name(), '-result-status')]
          | identity-verification/driver-licence/*/@match
          | company-officer-details/company-officer/company-status
          | (default-file | default-collection-agency-file)[default/default-status[@code != ''][not(normalize-space())]]"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="company-details/company-status" mode="mark">
    <xsl:call-template name="status-mark"><xsl:with-param name="what">Company status</xsl:with-param></xsl:call-template>
  </xsl:template>
  <xsl:template match="affiliated-company/company-status" mode="mark">
    <xsl:call-template name="status-mark">
      <xsl:with-param name="what" select="concat('Affiliate ', normalize-space(../company-name))"/>
    </xsl:call-template>
  </xsl:template>
  <xsl:template match="company-officer/company-status" mode="mark">
    <xsl:call-template name="status-mark">
      <xsl:with-param name="what" select="concat('Officer of ', normalize-space(../company-name))"/>
    </xsl:call-template>
  </xsl:template>
  <xsl:template match="electronic-white-pages-result-status | quotable-values-result-status" mode="mark">
    <xsl:call-template name="status-mark">
      <xsl:with-param name="what" select="concat(substring('White pages', 1, 11 * boolean(self::electronic-white-pages-result-status)),
                                                 substring('Quotable values', 1, 15 * boolean(self::quotable-values-result-status)))"/>
    </xsl:call-template>
  </xsl:template>
  <xsl:template match="driver-licence/*/@match" mode="mark">
    <xsl:call-template name="status-mark">
      <xsl:with-param name="what" select="concat('Driver licence check, ', translate(substring-before(concat(name(..), '-indicator'), '-indicator'), '-', ' '))"/>
    </xsl:call-template>
  </xsl:template>
  <xsl:template match="alias" mode="mark">
    <xsl:variable name="born" select="normalize-space(date-of-birth)"/>
    <xsl:variable name="name"><xsl:apply-templates select="." mode="name"/></xsl:variable>
    <xsl:if test="$born and $born != normalize-space(../date-of-birth)">
      <xsl:call-template name="mark">
        <xsl:with-param name="class">warn</xsl:with-param>
        <xsl:with-param name="what">Alias with another date of birth</xsl:with-param>
        <xsl:with-param name="says">
          <xsl:value-of select="concat($name, ', born ')"/>
          <xsl:call-template name="date"><xsl:with-param name="text" select="$born"/></xsl:call-template>
        </xsl:with-param>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>
  <!-- Once a file; each default shows its own. -->
  <xsl:template match="default-file | default-collection-agency-file" mode="mark">
    <xsl:call-template name="mark">
      <xsl:with-param name="class">warn</xsl:with-param>
      <xsl:with-param name="what" select="concat('Status of defaults', substring(' (collection agency)', 1, 20 * boolean(self::default-collection-agency-file)), ', not explained by the bureau')"/>
      <xsl:with-param name="says">
        <xsl:for-each select="default/default-status[@code != ''][not(normalize-space())]/@code">
          <xsl:if test="position() &lt;= 12">
            <xsl:value-of select="concat(substring(', ', 1, 2 * (position() != 1)), normalize-space())"/>
          </xsl:if>
          <xsl:if test="position() = 13">, ...</xsl:if>
        </xsl:for-each>
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <!-- The directors' own records, which may or may not be among those above. -->
  <xsl:template name="directors-verdict">
    <xsl:variable name="others" select="$directors/default-file/default | $directors/collection-file/collection
        | $directors/default-collection-agency-file/default | $directors/judgement-file/judgement
        | $directors/insolvency-file/insolvency | $directors/bankruptcy-file/bankruptcy"/>
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
        <xsl:if test="$directors-counted = 'yes'">They are counted above with the company's.</xsl:if>
        <xsl:if test="$directors-counted != 'yes'">They are not counted above.</xsl:if>
      </p>
    </xsl:if>
  </xsl:template>

  <!-- Each director's records, and a link to the report. -->
  <xsl:template name="directors-table">
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
        | collection-file/collection | judgement-file/judgement | insolvency-file/insolvency
        | bankruptcy-file/bankruptcy)"/>
  </xsl:template>

  <xsl:template name="tiles">
    <dl class="facts tiles">
      <xsl:call-template name="match-type"><xsl:with-param name="type" select="(file-id | $company/file-id)[1]/@match-type"/></xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Bureau file number</xsl:with-param>
        <xsl:with-param name="value" select="(file-id | $company/file-id)[1]"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Company status</xsl:with-param>
        <xsl:with-param name="value" select="$registration/company-details/company-status"/>
        <xsl:with-param name="as">marked</xsl:with-param>
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

</xsl:stylesheet>
