#include "adapters/odbc/postgres_functions.h"

#include "adapters/tsql/language/quoted_text.h"
#include "adapters/tsql/language/text_rules.h"

namespace kelvane::odbc {

namespace {

// Two sessions must not make them at the same time.
constexpr std::string_view kTypes = R"sql(
do $do$
begin
    perform pg_advisory_xact_lock(hashtext('kelvane'), hashtext(current_schema()));
    create domain kelvane_bit as smallint check (value in (0, 1));
    create domain kelvane_tinyint as smallint check (value between 0 and 255);
exception when duplicate_object then null;
end $do$;
)sql";

constexpr std::string_view kConversions = R"sql(
create or replace function kelvane_pattern(pattern text) returns text
language plpgsql immutable strict parallel safe as $$
declare
    result text := '^';
    wanted text := kelvane_fold(pattern);
    at int := 1;
    letter text;
    class text;
    negated boolean;
    high text;
begin
    while at <= char_length(wanted) loop
        letter := substr(wanted, at, 1);
        at := at + 1;
        if letter = '%' then
            result := result || '.*';
        elsif letter = '_' then
            result := result || '.';
        elsif letter <> '[' then
            result := result || '\U' || lpad(to_hex(ascii(letter)), 8, '0');
        else
            negated := substr(wanted, at, 1) = '^';
            if negated then at := at + 1; end if;
            class := null;
            loop
                if at > char_length(wanted) then return 'a^'; end if;
                letter := substr(wanted, at, 1);
                at := at + 1;
                exit when letter = ']' and class is not null;
                class := coalesce(class, '');
                high := letter;
                if substr(wanted, at, 1) = '-' and at < char_length(wanted)
                   and substr(wanted, at + 1, 1) <> ']' then
                    high := substr(wanted, at + 1, 1);
                    at := at + 2;
                end if;
                if ascii(letter) <= ascii(high) then
                    class := class || '\U' || lpad(to_hex(ascii(letter)), 8, '0') || '-\U'
                             || lpad(to_hex(ascii(high)), 8, '0');
                end if;
            end loop;
            if class <> '' then
                result := result || case when negated then '[^' else '[' end || class || ']';
            else
                result := result || case when negated then '.' else 'a^' end;
            end if;
        end if;
    end loop;
    return result || '$';
end $$;

create or replace function kelvane_raise(number int, description text) returns void
language plpgsql immutable parallel safe as $$
begin
    raise exception using errcode = 'KV000', message = number || ' ' || description;
end $$;

create or replace function kelvane_low(kind text) returns numeric
language sql immutable parallel safe as
$$ select case $1 when 'bit' then 0 when 'tinyint' then 0 when 'smallint' then -32768
    when 'int' then -2147483648 when 'money' then -922337203685477.5808
    else -9223372036854775808 end $$;

create or replace function kelvane_high(kind text) returns numeric
language sql immutable parallel safe as
$$ select case $1 when 'bit' then 1 when 'tinyint' then 255 when 'smallint' then 32767
    when 'int' then 2147483647 when 'money' then 922337203685477.5807
    else 9223372036854775807 end $$;

create or replace function kelvane_range(number numeric, kind text) returns numeric
language plpgsql immutable strict parallel safe as $$
begin
    if number < kelvane_low(kind) or number > kelvane_high(kind) then
        perform kelvane_raise(8115, 'Arithmetic overflow error converting expression to data type '
                                    || kind || '.');
    end if;
    return number;
end $$;

create or replace function kelvane_product(a numeric, b numeric) returns numeric
language plpgsql immutable strict parallel safe as $$
declare
    units numeric := a * b * 10000;
    whole numeric := trunc(units);
    rest numeric := abs(units - whole);
begin
    if rest > 0.5 or (rest = 0.5 and mod(whole, 2) <> 0) then whole := whole + sign(units); end if;
    return whole * 0.0001;
end $$;

create or replace function kelvane_part(value text, length int, kind text) returns text
language plpgsql immutable strict parallel safe as $$
declare
    used int := 0;
begin
    if octet_length(value) <= length then return value; end if;
    for at in 1 .. char_length(value) loop
        used := used + case
            when kind = 'nvarchar' then case when ascii(substr(value, at, 1)) > 65535 then 2 else 1 end
            else case when ascii(substr(value, at, 1)) > 127 then 2 else 1 end end;
        if used > length then return substr(value, 1, at - 1); end if;
    end loop;
    return value;
end $$;

create or replace function kelvane_store(value text, length int, kind text, target text)
returns text language plpgsql immutable strict parallel safe as $$
declare
    part text := kelvane_part(value, length, kind);
begin
    if char_length(part) < char_length(rtrim(value, ' ')) then
        perform kelvane_raise(8152, 'String or binary data would be truncated in column '''
                                    || target || '''.');
    end if;
    return part;
end $$;

create or replace function kelvane_cut(value text, length int, kind text, is_number boolean)
returns text language plpgsql immutable strict parallel safe as $$
declare
    part text := kelvane_part(value, length, kind);
begin
    if is_number and part <> value then
        perform kelvane_raise(8115, 'Arithmetic overflow error converting expression to data type '
                                    || kind || '.');
    end if;
    return part;
end $$;

create or replace function kelvane_to_integer(value text, source text, kind text) returns bigint
language plpgsql immutable strict parallel safe as $$
declare
    digits text := btrim(value, ' ');
    number numeric;
begin
    if kind = 'bit' and lower(digits) in ('true', 'false') then
        return case when lower(digits) = 'true' then 1 else 0 end;
    end if;
    if digits = '' then return 0; end if;
    if digits !~ '^[+-]?[0-9]+$' then
        perform kelvane_raise(245, 'Conversion failed when converting the ' || source || ' value '''
                                   || value || ''' to data type ' || kind || '.');
    end if;
    number := digits::numeric;
    if kind = 'bit' then return case when number <> 0 then 1 else 0 end; end if;
    if number < kelvane_low(kind) or number > kelvane_high(kind) then
        perform kelvane_raise(case kind when 'int' then 248 when 'bigint' then 8115 else 244 end,
                              'The value ''' || value || ''' overflowed data type ' || kind || '.');
    end if;
    return number::bigint;
end $$;

create or replace function kelvane_to_money(value text, source text) returns numeric
language plpgsql immutable strict parallel safe as $$
declare
    digits text := btrim(value, ' ');
begin
    if digits = '' then return 0; end if;
    if digits !~ '^[+-]?([0-9]+[.]?[0-9]*|[.][0-9]+)$' then
        perform kelvane_raise(235, 'Cannot convert the text ''' || value
                                   || ''' to money. The text has incorrect syntax.');
    end if;
    return kelvane_range(round(digits::numeric, 4), 'money');
end $$;

create or replace function kelvane_to_float(value text, source text) returns float8
language plpgsql immutable strict parallel safe as $$
declare
    digits text := btrim(value, ' ');
begin
    if digits = '' then return 0; end if;
    if digits !~ '^[+-]?([0-9]+[.]?[0-9]*|[.][0-9]+)([eE][+-]?[0-9]+)?$' then
        perform kelvane_raise(8114, 'Error converting data type ' || source || ' to float.');
    end if;
    return digits::float8;
end $$;
)sql";

constexpr std::string_view kDatesAndTexts = R"sql(
create or replace function kelvane_to_date(value text) returns timestamp
language plpgsql immutable strict as $$
declare
    digits text := btrim(value, ' ');
    part text[];
    result timestamp;
    thousandths int;
begin
    if digits = '' then return timestamp '1900-01-01'; end if;
    part := regexp_match(digits, '^(\d{1,4})([-/.])(\d{1,2})\2(\d{1,2})(?:(?:T| +)(\d{1,2}):(\d{1,2})(?::(\d{1,2})(?:[.](\d{1,3}))?)?)?$');
    if part is null then
        part := regexp_match(digits, '^(\d{4})()(\d{2})(\d{2})(?:(?:T| +)(\d{1,2}):(\d{1,2})(?::(\d{1,2})(?:[.](\d{1,3}))?)?)?$');
    end if;
    if part is null then
        perform kelvane_raise(241, 'Conversion failed when converting date and/or time from character string.');
    end if;
    thousandths := rpad(coalesce(part[8], '0'), 3, '0')::int;
    thousandths := thousandths - thousandths % 10
                   + (array[0, 0, 3, 3, 3, 7, 7, 7, 7, 10])[thousandths % 10 + 1];
    begin
        if coalesce(part[5], '0')::int > 23 or coalesce(part[7], '0')::int > 59 then
            raise datetime_field_overflow;
        end if;
        result := make_timestamp(part[1]::int, part[3]::int, part[4]::int,
                                 coalesce(part[5], '0')::int, coalesce(part[6], '0')::int,
                                 coalesce(part[7], '0')::int)
                  + thousandths * interval '1 millisecond';
        if result < timestamp '1753-01-01' or result >= timestamp '10000-01-01' then
            raise datetime_field_overflow;
        end if;
    exception when datetime_field_overflow then
        perform kelvane_raise(242, 'The conversion of a varchar data type to a datetime data type resulted in an out-of-range value.');
    end;
    return result;
end $$;

create or replace function kelvane_day(days bigint) returns timestamp
language plpgsql immutable strict parallel safe as $$
begin
    if days < -53690 or days > 2958463 then
        perform kelvane_raise(8115, 'Arithmetic overflow error converting expression to data type datetime.');
    end if;
    return timestamp '1900-01-01' + days * interval '1 day';
end $$;

create or replace function kelvane_style(style int, known boolean, behind text) returns void
language plpgsql immutable parallel safe as $$
begin
    if not known then
        perform kelvane_raise(281, style || ' is not a valid style number' || behind || '.');
    end if;
end $$;

create or replace function kelvane_money_text(amount numeric, style int) returns text
language plpgsql immutable strict parallel safe as $$
begin
    perform kelvane_style(style, style between 0 and 2, '');
    if style = 2 then return round(amount, 4)::text; end if;
    if style = 0 then return round(amount, 2)::text; end if;
    return to_char(round(amount, 2), 'FM999,999,999,999,990.00');
end $$;

create or replace function kelvane_float_text(value float8, style int) returns text
language plpgsql immutable strict parallel safe as $$
declare
    text_ text;
    power int;
begin
    perform kelvane_style(style, style between 0 and 2, '');
    if style = 1 then text_ := btrim(to_char(value, '9.9999999EEEE'), ' '); end if;
    if style = 2 then text_ := btrim(to_char(value, '9.999999999999999EEEE'), ' '); end if;
    if style = 0 then
        text_ := btrim(to_char(value, '9.99999EEEE'), ' ');
        power := split_part(text_, 'e', 2)::int;
        if power between -4 and 5 then
            return trim_scale(round(value::text::numeric, 5 - power))::text;
        end if;
        text_ := trim_scale(split_part(text_, 'e', 1)::numeric)::text || 'e'
                 || split_part(text_, 'e', 2);
    end if;
    return regexp_replace(text_, 'e([+-])(\d\d)$', 'e\10\2');
end $$;

create or replace function kelvane_date_text(value timestamp, style int) returns text
language plpgsql immutable strict parallel safe as $$
begin
    if style in (0, 100) then
        return (array['Jan','Feb','Mar','Apr','May','Jun','Jul','Aug','Sep','Oct','Nov','Dec'])
                   [extract(month from value)::int]
               || lpad(extract(day from value)::text, 3, ' ') || ' ' || to_char(value, 'YYYY')
               || ' ' || lpad(to_char(value, 'FMHH12'), 2, ' ') || to_char(value, ':MI')
               || case when extract(hour from value) < 12 then 'AM' else 'PM' end;
    end if;
    perform kelvane_style(style, style in (23, 102, 111, 112, 120, 121),
                          ' when converting from datetime to a character string');
    return to_char(value, case style when 23 then 'YYYY-MM-DD' when 102 then 'YYYY.MM.DD'
        when 111 then 'YYYY/MM/DD' when 112 then 'YYYYMMDD' when 120 then 'YYYY-MM-DD HH24:MI:SS'
        else 'YYYY-MM-DD HH24:MI:SS.MS' end);
end $$;
)sql";

// A function that indexes are made by, so without any other function of ours in it.
std::string FoldingFunction(const std::string& name, const std::string& text) {
    const tsql::CaseLetters letters = tsql::CasedLetters();
    const std::string lower = "lower(" + text + " collate \"C\")";
    return "create or replace function " + name +
           "(text) returns text language sql immutable parallel safe as $$ select case when "
           "octet_length($1) = char_length($1) then " +
           lower + " else translate(" + lower + ", " + tsql::QuotedText(letters.upper) + ", " +
           tsql::QuotedText(letters.lower) + ") end $$;\n";
}

}  // namespace

std::string PostgresFunctions() {
    std::string text(kTypes);
    text += FoldingFunction("kelvane_fold", "$1");
    text += FoldingFunction("kelvane_key", "rtrim($1, ' ')");
    text += kConversions;
    text += kDatesAndTexts;
    return text;
}

}  // namespace kelvane::odbc
