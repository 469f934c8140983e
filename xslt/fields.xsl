<?xml version="1.0" encoding="utf-8"?>
<!-- Facts and tables written as lists of fields, so that a layout reads as data:

       Label = path as form;

     The path leads from the record: child elements, perhaps an attribute at its end, a position in
     brackets, or a point for the record itself. A $ before the label means a column of amounts, a +
     a text that may be long. The form is one of "shown" below, or the name of a code table; without
     one the value is text. Every country's sheet has "described", which knows its code tables. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <!-- A record of which there is a list of fields. -->
  <xsl:template match="*" mode="facts">
    <xsl:param name="fields"/>
    <xsl:call-template name="facts"><xsl:with-param name="fields" select="$fields"/></xsl:call-template>
  </xsl:template>

  <!-- The facts of a record. Nothing when it has none. -->
  <xsl:template name="facts">
    <xsl:param name="fields"/>
    <xsl:variable name="made">
      <xsl:call-template name="each-field">
        <xsl:with-param name="fields" select="string($fields)"/>
        <xsl:with-param name="shape">fact</xsl:with-param>
      </xsl:call-template>
    </xsl:variable>
    <xsl:if test="string($made)"><dl class="facts"><xsl:copy-of select="$made"/></dl></xsl:if>
  </xsl:template>

  <!-- A section whose records are rows of one table. Nothing when there are none. -->
  <xsl:template name="field-table">
    <xsl:param name="level"/>
    <xsl:param name="title"/>
    <xsl:param name="records"/>
    <xsl:param name="fields"/>
    <xsl:if test="$records">
      <xsl:variable name="list" select="normalize-space($fields)"/>
      <xsl:call-template name="heading">
        <xsl:with-param name="level" select="$level"/>
        <xsl:with-param name="text" select="$title"/>
      </xsl:call-template>
      <table class="wide" role="table">
        <caption class="unseen"><xsl:value-of select="concat($title, ' (', count($records), ')')"/></caption>
        <xsl:call-template name="table-head">
          <xsl:with-param name="columns"><xsl:call-template name="each-field">
            <xsl:with-param name="fields" select="$list"/>
            <xsl:with-param name="shape">column</xsl:with-param>
          </xsl:call-template></xsl:with-param>
        </xsl:call-template>
        <tbody role="rowgroup">
          <xsl:for-each select="$records">
            <xsl:call-template name="field-row"><xsl:with-param name="list" select="$list"/></xsl:call-template>
          </xsl:for-each>
        </tbody>
      </table>
    </xsl:if>
  </xsl:template>

  <!-- What a template makes for itself is forgotten when it ends: so a record has one of its own. -->
  <xsl:template name="field-row">
    <xsl:param name="list"/>
    <xsl:variable name="note"><xsl:apply-templates select="." mode="note"/></xsl:variable>
    <tr role="row">
      <xsl:if test="string($note)"><xsl:attribute name="class">noted</xsl:attribute></xsl:if>
      <xsl:call-template name="each-field">
        <xsl:with-param name="fields" select="$list"/>
        <xsl:with-param name="shape">cell</xsl:with-param>
        <xsl:with-param name="first" select="true()"/>
      </xsl:call-template>
    </tr>
    <xsl:if test="string($note)">
      <tr role="row" class="note">
        <td role="cell" colspan="{string-length($list) - string-length(translate($list, ';', ''))}">
          <xsl:copy-of select="$note"/>
        </td>
      </tr>
    </xsl:if>
  </xsl:template>

  <!-- What is said below a row of a table. -->
  <xsl:template match="*" mode="note"/>

  <!-- The fields one by one, as facts, as cells or as the labels of columns. -->
  <xsl:template name="each-field">
    <xsl:param name="fields"/>
    <xsl:param name="shape"/>
    <xsl:param name="first" select="false()"/>
    <xsl:variable name="field" select="substring-before($fields, ';')"/>
    <xsl:if test="$field">
      <xsl:variable name="marked" select="normalize-space(substring-before($field, ' = '))"/>
      <xsl:choose>
        <xsl:when test="$shape = 'column'"><xsl:value-of select="concat(translate($marked, '+', ''), '|')"/></xsl:when>
        <xsl:when test="$shape = 'cell'">
          <xsl:call-template name="field-cell">
            <xsl:with-param name="marked" select="$marked"/>
            <xsl:with-param name="source" select="substring-after($field, ' = ')"/>
            <xsl:with-param name="first" select="$first"/>
          </xsl:call-template>
        </xsl:when>
        <xsl:otherwise>
          <xsl:call-template name="field-fact">
            <xsl:with-param name="marked" select="$marked"/>
            <xsl:with-param name="source" select="substring-after($field, ' = ')"/>
          </xsl:call-template>
        </xsl:otherwise>
      </xsl:choose>
      <xsl:call-template name="each-field">
        <xsl:with-param name="fields" select="substring-after($fields, ';')"/>
        <xsl:with-param name="shape" select="$shape"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- The common case, the text, date or amount of a child element or an attribute, is written at
       once. -->
  <xsl:template name="field-fact">
    <xsl:param name="marked"/>
    <xsl:param name="source"/>
    <xsl:variable name="path" select="substring-before(concat($source, ' '), ' ')"/>
    <xsl:variable name="form" select="substring-after($source, ' as ')"/>
    <xsl:variable name="class" select="substring('long', 1, 4 * starts-with($marked, '+'))"/>
    <xsl:choose>
      <xsl:when test="contains('||date|amount|', concat('|', $form, '|')) and $path = translate($path, '/[.', '')">
        <xsl:for-each select="*[name() = $path][1] | @*[concat('@', name()) = $path]">
          <xsl:call-template name="fact">
            <xsl:with-param name="label" select="translate($marked, '+', '')"/>
            <xsl:with-param name="value" select="."/>
            <xsl:with-param name="as" select="$form"/>
            <xsl:with-param name="class" select="$class"/>
          </xsl:call-template>
        </xsl:for-each>
      </xsl:when>
      <xsl:otherwise>
        <xsl:call-template name="fact">
          <xsl:with-param name="label" select="translate($marked, '+', '')"/>
          <xsl:with-param name="value"><xsl:call-template name="at">
            <xsl:with-param name="path" select="$path"/>
            <xsl:with-param name="form" select="$form"/>
          </xsl:call-template></xsl:with-param>
          <xsl:with-param name="as">made</xsl:with-param>
          <xsl:with-param name="class" select="$class"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="field-cell">
    <xsl:param name="marked"/>
    <xsl:param name="source"/>
    <xsl:param name="first"/>
    <xsl:variable name="path" select="substring-before(concat($source, ' '), ' ')"/>
    <xsl:variable name="form" select="substring-after($source, ' as ')"/>
    <xsl:call-template name="cell">
      <xsl:with-param name="label" select="translate($marked, '$+', '')"/>
      <xsl:with-param name="value"><xsl:call-template name="at">
        <xsl:with-param name="path" select="$path"/>
        <xsl:with-param name="form" select="$form"/>
      </xsl:call-template></xsl:with-param>
      <xsl:with-param name="as">made</xsl:with-param>
      <xsl:with-param name="class"><xsl:choose>
        <xsl:when test="starts-with($marked, '$')">amount</xsl:when>
        <xsl:when test="starts-with($marked, '+')">prose</xsl:when>
        <xsl:when test="$form = 'lines' or $form = 'made'">address</xsl:when>
      </xsl:choose></xsl:with-param>
      <xsl:with-param name="head" select="$first"/>
    </xsl:call-template>
  </xsl:template>

  <!-- What stands at a path: the first node's value, or as lines the values of all. -->
  <xsl:template name="at">
    <xsl:param name="path"/>
    <xsl:param name="form"/>
    <xsl:variable name="step" select="substring-before(concat($path, '/'), '/')"/>
    <xsl:variable name="rest" select="substring-after($path, '/')"/>
    <xsl:variable name="name" select="substring-before(concat($step, '['), '[')"/>
    <xsl:variable name="place" select="number(substring-before(substring-after($step, '['), ']'))"/>
    <xsl:choose>
      <xsl:when test="$step = '.'">
        <xsl:call-template name="shown"><xsl:with-param name="form" select="$form"/></xsl:call-template>
      </xsl:when>
      <xsl:when test="starts-with($step, '@')">
        <xsl:for-each select="@*[name() = substring($step, 2)]">
          <xsl:call-template name="shown"><xsl:with-param name="form" select="$form"/></xsl:call-template>
        </xsl:for-each>
      </xsl:when>
      <xsl:otherwise>
        <xsl:for-each select="*[name() = $name][$place = $place and position() = $place
                                or not($place = $place) and (position() = 1 or $form = 'lines')]">
          <xsl:if test="position() != 1"><xsl:text>&#10;</xsl:text></xsl:if>
          <xsl:choose>
            <xsl:when test="$rest">
              <xsl:call-template name="at">
                <xsl:with-param name="path" select="$rest"/>
                <xsl:with-param name="form" select="$form"/>
              </xsl:call-template>
            </xsl:when>
            <xsl:otherwise>
              <xsl:call-template name="shown"><xsl:with-param name="form" select="$form"/></xsl:call-template>
            </xsl:otherwise>
          </xsl:choose>
        </xsl:for-each>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- A node in a form: date, amount, word or text, as "value" has them, or:
       marked    text with bad news in colour   matched  the same, and Y as Yes, N as No
       number    12.50 as 12.5                 count    1234567 as 1,234,567
       percent   0.255 as 25.50%               yes      Y as Yes, N as No
       moment    a date and a time of day      lines    texts below one another
       name      of the person in the node
       made, counted   what the node's own template makes of it, or counts in it -->
  <xsl:template name="shown">
    <xsl:param name="form"/>
    <xsl:variable name="text" select="normalize-space()"/>
    <xsl:choose>
      <xsl:when test="contains('||date|amount|word|lines|marked|', concat('|', $form, '|'))">
        <xsl:call-template name="value">
          <xsl:with-param name="value" select="string()"/>
          <xsl:with-param name="as" select="$form"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:when test="$form = 'name'"><xsl:apply-templates select="." mode="name"/></xsl:when>
      <xsl:when test="$form = 'made'"><xsl:apply-templates select="." mode="made"/></xsl:when>
      <xsl:when test="$form = 'counted'"><xsl:apply-templates select="." mode="counted"/></xsl:when>
      <xsl:when test="$form = 'yes'">
        <xsl:call-template name="yes-or-no"><xsl:with-param name="text" select="$text"/></xsl:call-template>
      </xsl:when>
      <xsl:when test="$form = 'matched'">
        <xsl:call-template name="marked"><xsl:with-param name="text">
          <xsl:call-template name="yes-or-no"><xsl:with-param name="text" select="$text"/></xsl:call-template>
        </xsl:with-param></xsl:call-template>
      </xsl:when>
      <xsl:when test="$form = 'moment'"><xsl:value-of select="translate($text, 'T', ' ')"/></xsl:when>
      <xsl:when test="$form = 'number' or $form = 'count' or $form = 'percent'">
        <xsl:variable name="number"
                      select="number(substring($text, 1, 20 * not(translate($text, '0123456789.-', ''))))"/>
        <xsl:choose>
          <xsl:when test="not($number = $number)"><xsl:value-of select="$text"/></xsl:when>
          <xsl:when test="$form = 'count'"><xsl:value-of select="format-number($number, '#,##0')"/></xsl:when>
          <xsl:when test="$form = 'percent'"><xsl:value-of select="format-number($number, '0.00%')"/></xsl:when>
          <xsl:otherwise><xsl:value-of select="$number"/></xsl:otherwise>
        </xsl:choose>
      </xsl:when>
      <xsl:otherwise>
        <xsl:call-template name="described">
          <xsl:with-param name="table" select="$form"/>
          <xsl:with-param name="code" select="$text"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

</xsl:stylesheet>
