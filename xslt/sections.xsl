<?xml version="1.0" encoding="utf-8"?>
<!-- The sections of a report, of every country: parts, tables, boxes of records, totals. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <!-- A part of a file, where there is anything of it: a panel of its own, or a part of another
       panel. Within it stands what the sheet's "part-body" makes for its id; `as` "links" gives the
       link to it instead. -->
  <xsl:template name="part">
    <xsl:param name="id"/>
    <xsl:param name="level" select="2"/>
    <xsl:param name="title"/>
    <xsl:param name="of"/>
    <xsl:param name="as"/>
    <xsl:choose>
      <xsl:when test="not($of)"/>
      <xsl:when test="$as = 'links'">
        <li><a href="#{$id}"><xsl:value-of select="$title"/></a></li>
      </xsl:when>
      <xsl:otherwise>
        <section>
          <xsl:attribute name="class">
            <xsl:value-of select="substring('panelpart', 1 + 5 * ($level != 2), 5 - ($level != 2))"/>
          </xsl:attribute>
          <xsl:if test="$level = 2"><xsl:attribute name="id"><xsl:value-of select="$id"/></xsl:attribute></xsl:if>
          <xsl:call-template name="heading">
            <xsl:with-param name="level" select="$level"/>
            <xsl:with-param name="text" select="$title"/>
          </xsl:call-template>
          <xsl:call-template name="part-body">
            <xsl:with-param name="id" select="$id"/>
            <xsl:with-param name="level" select="$level"/>
          </xsl:call-template>
        </section>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- First, other and family name with single blanks; of a person or of a cross reference. -->
  <xsl:template match="*" mode="name">
    <xsl:value-of select="normalize-space(concat(individual-name/first-given-name, ' ',
                                                 individual-name/other-given-name, ' ',
                                                 individual-name/family-name))"/>
  </xsl:template>

  <!-- A section whose records are rows of one table. Nothing when there are none. -->
  <xsl:template name="table-section">
    <xsl:param name="level"/>
    <xsl:param name="title"/>
    <xsl:param name="records"/>
    <xsl:param name="columns"/>
    <xsl:if test="$records">
      <xsl:call-template name="heading">
        <xsl:with-param name="level" select="$level"/>
        <xsl:with-param name="text" select="$title"/>
      </xsl:call-template>
      <table class="wide" role="table">
        <caption class="unseen"><xsl:value-of select="concat($title, ' (', count($records), ')')"/></caption>
        <xsl:call-template name="table-head"><xsl:with-param name="columns" select="$columns"/></xsl:call-template>
        <tbody role="rowgroup">
          <xsl:for-each select="$records">
            <tr role="row"><xsl:apply-templates select="." mode="row"/></tr>
          </xsl:for-each>
        </tbody>
      </table>
    </xsl:if>
  </xsl:template>

  <!-- A section whose records have a box each, with a number of their own or their position. Nothing
       when there are none. -->
  <xsl:template name="record-section">
    <xsl:param name="level"/>
    <xsl:param name="title"/>
    <xsl:param name="noun"/>
    <xsl:param name="records"/>
    <xsl:if test="$records">
      <xsl:call-template name="heading">
        <xsl:with-param name="level" select="$level"/>
        <xsl:with-param name="text" select="$title"/>
      </xsl:call-template>
      <xsl:variable name="all-fields"><xsl:apply-templates select="$records[1]" mode="fields"/></xsl:variable>
      <xsl:variable name="fields"><xsl:call-template name="occurring">
        <xsl:with-param name="fields" select="string($all-fields)"/>
        <xsl:with-param name="records" select="$records"/>
      </xsl:call-template></xsl:variable>
      <xsl:for-each select="$records">
        <xsl:call-template name="record">
          <xsl:with-param name="fields" select="string($fields)"/>
          <xsl:with-param name="level" select="$level"/>
          <xsl:with-param name="noun" select="$noun"/>
          <xsl:with-param name="place" select="position()"/>
        </xsl:call-template>
      </xsl:for-each>
    </xsl:if>
  </xsl:template>

  <!-- What a template makes for itself is forgotten when it ends: so a record has one of its own. -->
  <xsl:template name="record">
    <xsl:param name="fields"/>
    <xsl:param name="level"/>
    <xsl:param name="noun"/>
    <xsl:param name="place"/>
    <xsl:variable name="id"><xsl:apply-templates select="." mode="id"/></xsl:variable>
    <xsl:variable name="name"
                  select="concat($noun, ' ', $id, substring($place, 1, 9 * not(string($id))))"/>
    <xsl:variable name="tag"><xsl:apply-templates select="." mode="tag"/></xsl:variable>
    <xsl:variable name="facts">
      <xsl:apply-templates select="." mode="facts">
        <xsl:with-param name="name" select="$name"/>
        <xsl:with-param name="fields" select="$fields"/>
      </xsl:apply-templates>
    </xsl:variable>
    <article>
      <xsl:attribute name="class">
        <xsl:text>record</xsl:text>
        <xsl:if test="string($tag)"> bad</xsl:if>
      </xsl:attribute>
      <xsl:call-template name="heading">
        <xsl:with-param name="level" select="$level + 1"/>
        <xsl:with-param name="text"><xsl:value-of select="$name"/><xsl:copy-of select="$tag"/></xsl:with-param>
      </xsl:call-template>
      <xsl:copy-of select="$facts"/>
      <xsl:if test="not(string($facts))"><p class="none">No details given.</p></xsl:if>
    </article>
  </xsl:template>

  <!-- The list of a record's fields, see fields.xsl, where its facts are not made otherwise. -->
  <xsl:template match="*" mode="fields"/>

  <!-- The fields that one of the records may have: most of a list are of other layouts. -->
  <xsl:template name="occurring">
    <xsl:param name="fields"/>
    <xsl:param name="records"/>
    <xsl:variable name="field" select="substring-before($fields, ';')"/>
    <xsl:if test="$field">
      <xsl:variable name="path" select="substring-before(concat(substring-after($field, ' = '), ' '), ' ')"/>
      <xsl:variable name="step" select="substring-before(concat(translate($path, '[@', '/'), '/'), '/')"/>
      <xsl:choose>
        <xsl:when test="$step = '.'"><xsl:value-of select="concat($field, ';')"/></xsl:when>
        <xsl:when test="$records/*[name() = $step]"><xsl:value-of select="concat($field, ';')"/></xsl:when>
        <xsl:when test="$records/@*[name() = $step]"><xsl:value-of select="concat($field, ';')"/></xsl:when>
      </xsl:choose>
      <xsl:call-template name="occurring">
        <xsl:with-param name="fields" select="substring-after($fields, ';')"/>
        <xsl:with-param name="records" select="$records"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- The number that a record has of its own. -->
  <xsl:template match="*" mode="id"/>

  <!-- What marks a record as still open: not paid, undischarged. -->
  <xsl:template match="*" mode="tag"/>

  <xsl:template name="tag">
    <xsl:param name="text"/>
    <xsl:param name="class">bad</xsl:param>
    <xsl:text> </xsl:text>
    <span class="tag {$class}"><xsl:value-of select="$text"/></span>
  </xsl:template>

  <!-- The names of totals that speak of adverse records, each after a comma and a blank. -->
  <xsl:template match="summary | characteristic" mode="adverse">
    <xsl:variable name="name" select="translate(@name, $capital, $small)"/>
    <xsl:variable name="value" select="translate(normalize-space(), $capital, $small)"/>
    <xsl:if test="(contains($name, 'default') or contains($name, 'judg') or contains($name, 'writ')
                   or contains($name, 'summons') or contains($name, 'court')
                   or contains($name, 'bankrupt') or contains($name, 'disqualif')
                   or contains($name, 'insolven') or contains($name, 'adverse'))
                  and $value != '' and not(number($value) = 0)
                  and not(contains('|no|n|none|nil|n/a|-|', concat('|', $value, '|')))">
      <xsl:value-of select="concat(', ', @name, ' ', normalize-space())"/>
    </xsl:if>
  </xsl:template>

  <!-- Named values of the bureau. -->
  <xsl:template name="totals">
    <xsl:param name="items"/>
    <dl class="facts">
      <xsl:for-each select="$items[normalize-space()]">
        <xsl:call-template name="fact">
          <xsl:with-param name="label">
            <xsl:call-template name="word">
              <xsl:with-param name="text" select="normalize-space(@name)"/>
            </xsl:call-template>
          </xsl:with-param>
          <xsl:with-param name="value"><xsl:apply-templates select="." mode="typed"/></xsl:with-param>
        </xsl:call-template>
      </xsl:for-each>
    </dl>
  </xsl:template>

  <xsl:template match="summary | characteristic" mode="typed">
    <xsl:choose>
      <xsl:when test="@type = 'boolean'">
        <xsl:call-template name="yes-or-no"><xsl:with-param name="text" select="normalize-space()"/></xsl:call-template>
      </xsl:when>
      <xsl:when test="@type = 'amount'">
        <xsl:call-template name="amount"><xsl:with-param name="text" select="normalize-space()"/></xsl:call-template>
      </xsl:when>
      <xsl:when test="@type = 'months' or @type = 'years'">
        <xsl:value-of select="concat(normalize-space(), ' ', @type)"/>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="."/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- Y and N in full; anything else as it stands. -->
  <xsl:template name="yes-or-no">
    <xsl:param name="text"/>
    <xsl:variable name="sign" select="translate($text, $small, $capital)"/>
    <xsl:choose>
      <xsl:when test="$sign = 'Y' or $sign = 'YES'">Yes</xsl:when>
      <xsl:when test="$sign = 'N' or $sign = 'NO'">No</xsl:when>
      <xsl:otherwise><xsl:value-of select="$text"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

</xsl:stylesheet>
