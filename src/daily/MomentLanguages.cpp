// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

// The names and rules are those of the locales of Moment 2.29.4 (github.com/moment/moment; copyright JS Foundation and
// other contributors, MIT licence), and of 2.31.0 where `newerTables` says so.

#include <daily/MomentLanguages.h>

#include <algorithm>

namespace flitmark {

namespace {

// Where in a format the names of months and weekdays take another form. No pattern can be tried twice on one character.
constexpr QStringView afterDay = uR"(D[oD]?(?:\[[^\[\]]*\]|\s)++MMMM?)";
constexpr QStringView czechAfterDay = uR"(D[oD]?(?:\[[^\[\]]*\]|\s)++MMMM?|D[o.]?(?:\[[^\[\]]*\]|\s)++MMMM)";
constexpr QStringView polishAfterDay = u"D MMMM";
constexpr QStringView betweenHyphens = u"-MMM-";
constexpr QStringView russianInto = uR"(\[ ?[Вв] ?(?:прошлую|следующую|эту)? ?\] ?dddd)";
constexpr QStringView ukrainianInto = uR"(\[[ВвУу]\] ?dddd)";
constexpr QStringView ukrainianOf = uR"(\] ?dddd)";

QStringView dotted(int, char)
{
    return u".";
}

QStringView masculine(int, char)
{
    return u"º";
}

QStringView english(int number, char)
{
    if (number % 100 / 10 == 1) {
        return u"th";
    }
    static constexpr std::array endings = {u"th", u"st", u"nd", u"rd"};
    return number % 10 < 4 ? endings[static_cast<size_t>(number % 10)] : endings[0];
}

QStringView french(int number, char unit)
{
    if (number == 1) {
        return unit == 'w' ? u"re" : u"er";
    }
    return unit == 'D' ? u"" : u"e";
}

QStringView dutch(int number, char)
{
    return number == 1 || number == 8 || number >= 20 ? u"ste" : u"de";
}

QStringView russian(int, char unit)
{
    switch (unit) {
    case 'D':
        return u"-го";
    case 'w':
        return u"-я";
    case 'Y':
    case 'd':
    case 'M':
        return u"-й";
    default:
        return {};
    }
}

QStringView ukrainian(int number, char unit)
{
    return unit == 'w' ? u"-й" : russian(number, unit);
}

QStringView turkish(int number, char unit)
{
    if (unit == 'D' || unit == 'd') {
        return {};
    }
    static constexpr std::array ones = {u"",      u"'inci", u"'nci", u"'üncü", u"'üncü",
                                        u"'inci", u"'ncı",  u"'nci", u"'inci", u"'uncu"};
    // Moment's table has no ending for 40 and writes no number there at all.
    static constexpr std::array tens = {u"'üncü", u"'uncu", u"'nci",  u"'uncu", u"",
                                        u"'nci",  u"'ıncı", u"'inci", u"'inci", u"'ıncı"};
    return number % 10 != 0 ? ones[static_cast<size_t>(number % 10)] : tens[static_cast<size_t>(number % 100 / 10)];
}

QStringView swedish(int number, char)
{
    const bool isA = number % 100 / 10 != 1 && (number % 10 == 1 || number % 10 == 2);
    return isA ? u":a" : u":e";
}

/// The words of an East Asian language for a day, a week and a month, each one character.
QStringView counted(char unit, QStringView words)
{
    switch (unit) {
    case 'D':
    case 'Y':
    case 'd':
        return words.first(1);
    case 'w':
        return words.sliced(1, 1);
    case 'M':
        return words.sliced(2);
    default:
        return {};
    }
}

QStringView chinese(int, char unit)
{
    return counted(unit, u"日周月");
}

QStringView taiwanese(int, char unit)
{
    return counted(unit, u"日週月");
}

QStringView korean(int, char unit)
{
    return counted(unit, u"일주월");
}

QStringView japanese(int, char unit)
{
    return unit == 'y' ? u"年" : unit == 'w' || unit == 'M' ? u"" : counted(unit, u"日  ");
}

/// Each row: name, week rules, ordinals, the formats of dates; then one line for months, short months, weekdays, short
/// and shortest weekdays.
// clang-format off
const QList<MomentLanguage> tables = {
    {u"en", 0, 6, english, {u"MM/DD/YYYY", u"MMMM D, YYYY", u"M/D/YYYY", u"MMM D, YYYY"},
     {u"January_February_March_April_May_June_July_August_September_October_November_December"},
     {u"Jan_Feb_Mar_Apr_May_Jun_Jul_Aug_Sep_Oct_Nov_Dec"},
     {u"Sunday_Monday_Tuesday_Wednesday_Thursday_Friday_Saturday"},
     {u"Sun_Mon_Tue_Wed_Thu_Fri_Sat"},
     {u"Su_Mo_Tu_We_Th_Fr_Sa"}},
    {u"en-gb", 1, 4, english, {u"DD/MM/YYYY", u"D MMMM YYYY", u"D/M/YYYY", u"D MMM YYYY"},
     {u"January_February_March_April_May_June_July_August_September_October_November_December"},
     {u"Jan_Feb_Mar_Apr_May_Jun_Jul_Aug_Sep_Oct_Nov_Dec"},
     {u"Sunday_Monday_Tuesday_Wednesday_Thursday_Friday_Saturday"},
     {u"Sun_Mon_Tue_Wed_Thu_Fri_Sat"},
     {u"Su_Mo_Tu_We_Th_Fr_Sa"}},
    {u"de", 1, 4, dotted, {u"DD.MM.YYYY", u"D. MMMM YYYY", u"D.M.YYYY", u"D. MMM YYYY"},
     {u"Januar_Februar_März_April_Mai_Juni_Juli_August_September_Oktober_November_Dezember"},
     {u"Jan._Feb._März_Apr._Mai_Juni_Juli_Aug._Sep._Okt._Nov._Dez."},
     {u"Sonntag_Montag_Dienstag_Mittwoch_Donnerstag_Freitag_Samstag"},
     {u"So._Mo._Di._Mi._Do._Fr._Sa."},
     {u"So_Mo_Di_Mi_Do_Fr_Sa"}},
    {u"fr", 1, 4, french, {u"DD/MM/YYYY", u"D MMMM YYYY", u"D/M/YYYY", u"D MMM YYYY"},
     {u"janvier_février_mars_avril_mai_juin_juillet_août_septembre_octobre_novembre_décembre"},
     {u"janv._févr._mars_avr._mai_juin_juil._août_sept._oct._nov._déc."},
     {u"dimanche_lundi_mardi_mercredi_jeudi_vendredi_samedi"},
     {u"dim._lun._mar._mer._jeu._ven._sam."},
     {u"di_lu_ma_me_je_ve_sa"}},
    {u"es", 1, 4, masculine, {u"DD/MM/YYYY", u"D [de] MMMM [de] YYYY", u"D/M/YYYY", u"D [de] MMM [de] YYYY"},
     {u"enero_febrero_marzo_abril_mayo_junio_julio_agosto_septiembre_octubre_noviembre_diciembre"},
     {u"ene._feb._mar._abr._may._jun._jul._ago._sep._oct._nov._dic.",
      betweenHyphens, u"ene_feb_mar_abr_may_jun_jul_ago_sep_oct_nov_dic"},
     {u"domingo_lunes_martes_miércoles_jueves_viernes_sábado"},
     {u"dom._lun._mar._mié._jue._vie._sáb."},
     {u"do_lu_ma_mi_ju_vi_sá"}},
    {u"it", 1, 4, masculine, {u"DD/MM/YYYY", u"D MMMM YYYY", u"D/M/YYYY", u"D MMM YYYY"},
     {u"gennaio_febbraio_marzo_aprile_maggio_giugno_luglio_agosto_settembre_ottobre_novembre_dicembre"},
     {u"gen_feb_mar_apr_mag_giu_lug_ago_set_ott_nov_dic"},
     {u"domenica_lunedì_martedì_mercoledì_giovedì_venerdì_sabato"},
     {u"dom_lun_mar_mer_gio_ven_sab"},
     {u"do_lu_ma_me_gi_ve_sa"}},
    {u"pt", 1, 4, masculine, {u"DD/MM/YYYY", u"D [de] MMMM [de] YYYY", u"D/M/YYYY", u"D [de] MMM [de] YYYY"},
     {u"janeiro_fevereiro_março_abril_maio_junho_julho_agosto_setembro_outubro_novembro_dezembro"},
     {u"jan_fev_mar_abr_mai_jun_jul_ago_set_out_nov_dez"},
     {u"Domingo_Segunda-feira_Terça-feira_Quarta-feira_Quinta-feira_Sexta-feira_Sábado"},
     {u"Dom_Seg_Ter_Qua_Qui_Sex_Sáb"},
     {u"Do_2ª_3ª_4ª_5ª_6ª_Sá"}},
    {u"pt-br", 0, 6, masculine, {u"DD/MM/YYYY", u"D [de] MMMM [de] YYYY", u"D/M/YYYY", u"D [de] MMM [de] YYYY"},
     {u"janeiro_fevereiro_março_abril_maio_junho_julho_agosto_setembro_outubro_novembro_dezembro"},
     {u"jan_fev_mar_abr_mai_jun_jul_ago_set_out_nov_dez"},
     {u"domingo_segunda-feira_terça-feira_quarta-feira_quinta-feira_sexta-feira_sábado"},
     {u"dom_seg_ter_qua_qui_sex_sáb"},
     {u"do_2ª_3ª_4ª_5ª_6ª_sá"}},
    {u"nl", 1, 4, dutch, {u"DD-MM-YYYY", u"D MMMM YYYY", u"D-M-YYYY", u"D MMM YYYY"},
     {u"januari_februari_maart_april_mei_juni_juli_augustus_september_oktober_november_december"},
     {u"jan._feb._mrt._apr._mei_jun._jul._aug._sep._okt._nov._dec.",
      betweenHyphens, u"jan_feb_mrt_apr_mei_jun_jul_aug_sep_okt_nov_dec"},
     {u"zondag_maandag_dinsdag_woensdag_donderdag_vrijdag_zaterdag"},
     {u"zo._ma._di._wo._do._vr._za."},
     {u"zo_ma_di_wo_do_vr_za"}},
    {u"pl", 1, 4, dotted, {u"DD.MM.YYYY", u"D MMMM YYYY", u"D.M.YYYY", u"D MMM YYYY"},
     {u"styczeń_luty_marzec_kwiecień_maj_czerwiec_lipiec_sierpień_wrzesień_październik_listopad_grudzień",
      polishAfterDay, u"stycznia_lutego_marca_kwietnia_maja_czerwca_lipca_sierpnia_września_października_listopada_grudnia"},
     {u"sty_lut_mar_kwi_maj_cze_lip_sie_wrz_paź_lis_gru"},
     {u"niedziela_poniedziałek_wtorek_środa_czwartek_piątek_sobota"},
     {u"ndz_pon_wt_śr_czw_pt_sob"},
     {u"Nd_Pn_Wt_Śr_Cz_Pt_So"}},
    {u"cs", 1, 4, dotted, {u"DD.MM.YYYY", u"D. MMMM YYYY", u"D. M. YYYY", u"D. MMM YYYY"},
     {u"ledna_února_března_dubna_května_června_července_srpna_září_října_listopadu_prosince",
      afterDay, u"leden_únor_březen_duben_květen_červen_červenec_srpen_září_říjen_listopad_prosinec"},
     {u"led_úno_bře_dub_kvě_čvn_čvc_srp_zář_říj_lis_pro"},
     {u"neděle_pondělí_úterý_středa_čtvrtek_pátek_sobota"},
     {u"ne_po_út_st_čt_pá_so"},
     {u"ne_po_út_st_čt_pá_so"}},
    {u"ru", 1, 4, russian, {u"DD.MM.YYYY", u"D MMMM YYYY г.", u"D.M.YYYY", u"D MMM YYYY г."},
     {u"январь_февраль_март_апрель_май_июнь_июль_август_сентябрь_октябрь_ноябрь_декабрь",
      afterDay, u"января_февраля_марта_апреля_мая_июня_июля_августа_сентября_октября_ноября_декабря"},
     {u"янв._февр._март_апр._май_июнь_июль_авг._сент._окт._нояб._дек.",
      afterDay, u"янв._февр._мар._апр._мая_июня_июля_авг._сент._окт._нояб._дек."},
     {u"воскресенье_понедельник_вторник_среда_четверг_пятница_суббота",
      russianInto, u"воскресенье_понедельник_вторник_среду_четверг_пятницу_субботу"},
     {u"вс_пн_вт_ср_чт_пт_сб"},
     {u"вс_пн_вт_ср_чт_пт_сб"}},
    {u"uk", 1, 7, ukrainian, {u"DD.MM.YYYY", u"D MMMM YYYY р.", u"D.M.YYYY", u"D MMM YYYY р."},
     {u"січень_лютий_березень_квітень_травень_червень_липень_серпень_вересень_жовтень_листопад_грудень",
      afterDay, u"січня_лютого_березня_квітня_травня_червня_липня_серпня_вересня_жовтня_листопада_грудня"},
     {u"січ_лют_бер_квіт_трав_черв_лип_серп_вер_жовт_лист_груд"},
     {u"неділя_понеділок_вівторок_середа_четвер_п’ятниця_субота",
      ukrainianInto, u"неділю_понеділок_вівторок_середу_четвер_п’ятницю_суботу",
      ukrainianOf, u"неділі_понеділка_вівторка_середи_четверга_п’ятниці_суботи"},
     {u"нд_пн_вт_ср_чт_пт_сб"},
     {u"нд_пн_вт_ср_чт_пт_сб"}},
    {u"tr", 1, 7, turkish, {u"DD.MM.YYYY", u"D MMMM YYYY", u"D.M.YYYY", u"D MMM YYYY"},
     {u"Ocak_Şubat_Mart_Nisan_Mayıs_Haziran_Temmuz_Ağustos_Eylül_Ekim_Kasım_Aralık"},
     {u"Oca_Şub_Mar_Nis_May_Haz_Tem_Ağu_Eyl_Eki_Kas_Ara"},
     {u"Pazar_Pazartesi_Salı_Çarşamba_Perşembe_Cuma_Cumartesi"},
     {u"Paz_Pzt_Sal_Çar_Per_Cum_Cmt"},
     {u"Pz_Pt_Sa_Ça_Pe_Cu_Ct"}},
    {u"sv", 1, 4, swedish, {u"YYYY-MM-DD", u"D MMMM YYYY", u"YYYY-M-D", u"D MMM YYYY"},
     {u"januari_februari_mars_april_maj_juni_juli_augusti_september_oktober_november_december"},
     {u"jan_feb_mar_apr_maj_jun_jul_aug_sep_okt_nov_dec"},
     {u"söndag_måndag_tisdag_onsdag_torsdag_fredag_lördag"},
     {u"sön_mån_tis_ons_tor_fre_lör"},
     {u"sö_må_ti_on_to_fr_lö"}},
    {u"da", 1, 4, dotted, {u"DD.MM.YYYY", u"D. MMMM YYYY", u"D.M.YYYY", u"D. MMM YYYY"},
     {u"januar_februar_marts_april_maj_juni_juli_august_september_oktober_november_december"},
     {u"jan_feb_mar_apr_maj_jun_jul_aug_sep_okt_nov_dec"},
     {u"søndag_mandag_tirsdag_onsdag_torsdag_fredag_lørdag"},
     {u"søn_man_tir_ons_tor_fre_lør"},
     {u"sø_ma_ti_on_to_fr_lø"}},
    {u"nb", 1, 4, dotted, {u"DD.MM.YYYY", u"D. MMMM YYYY", u"D.M.YYYY", u"D. MMM YYYY"},
     {u"januar_februar_mars_april_mai_juni_juli_august_september_oktober_november_desember"},
     {u"jan._feb._mars_apr._mai_juni_juli_aug._sep._okt._nov._des."},
     {u"søndag_mandag_tirsdag_onsdag_torsdag_fredag_lørdag"},
     {u"sø._ma._ti._on._to._fr._lø."},
     {u"sø_ma_ti_on_to_fr_lø"}},
    {u"fi", 1, 4, dotted, {u"DD.MM.YYYY", u"Do MMMM[ta] YYYY", u"D.M.YYYY", u"Do MMM YYYY"},
     {u"tammikuu_helmikuu_maaliskuu_huhtikuu_toukokuu_kesäkuu_heinäkuu_elokuu_syyskuu_lokakuu_marraskuu_joulukuu"},
     {u"tammi_helmi_maalis_huhti_touko_kesä_heinä_elo_syys_loka_marras_joulu"},
     {u"sunnuntai_maanantai_tiistai_keskiviikko_torstai_perjantai_lauantai"},
     {u"su_ma_ti_ke_to_pe_la"},
     {u"su_ma_ti_ke_to_pe_la"}},
    {u"ja", 0, 6, japanese, {u"YYYY/MM/DD", u"YYYY年M月D日", u"YYYY/MM/DD", u"YYYY年M月D日"},
     {u"1月_2月_3月_4月_5月_6月_7月_8月_9月_10月_11月_12月"},
     {u"1月_2月_3月_4月_5月_6月_7月_8月_9月_10月_11月_12月"},
     {u"日曜日_月曜日_火曜日_水曜日_木曜日_金曜日_土曜日"},
     {u"日_月_火_水_木_金_土"},
     {u"日_月_火_水_木_金_土"}},
    {u"zh-cn", 1, 4, chinese, {u"YYYY/MM/DD", u"YYYY年M月D日", u"YYYY/M/D", u"YYYY年M月D日"},
     {u"一月_二月_三月_四月_五月_六月_七月_八月_九月_十月_十一月_十二月"},
     {u"1月_2月_3月_4月_5月_6月_7月_8月_9月_10月_11月_12月"},
     {u"星期日_星期一_星期二_星期三_星期四_星期五_星期六"},
     {u"周日_周一_周二_周三_周四_周五_周六"},
     {u"日_一_二_三_四_五_六"}},
    {u"zh-tw", 0, 6, taiwanese, {u"YYYY/MM/DD", u"YYYY年M月D日", u"YYYY/M/D", u"YYYY年M月D日"},
     {u"一月_二月_三月_四月_五月_六月_七月_八月_九月_十月_十一月_十二月"},
     {u"1月_2月_3月_4月_5月_6月_7月_8月_9月_10月_11月_12月"},
     {u"星期日_星期一_星期二_星期三_星期四_星期五_星期六"},
     {u"週日_週一_週二_週三_週四_週五_週六"},
     {u"日_一_二_三_四_五_六"}},
    {u"ko", 0, 6, korean, {u"YYYY.MM.DD.", u"YYYY년 MMMM D일", u"YYYY.MM.DD.", u"YYYY년 MMMM D일"},
     {u"1월_2월_3월_4월_5월_6월_7월_8월_9월_10월_11월_12월"},
     {u"1월_2월_3월_4월_5월_6월_7월_8월_9월_10월_11월_12월"},
     {u"일요일_월요일_화요일_수요일_목요일_금요일_토요일"},
     {u"일_월_화_수_목_금_토"},
     {u"일_월_화_수_목_금_토"}},
};
// clang-format on

const MomentLanguage& tableNamed(QStringView name)
{
    return *std::find_if(tables.begin(), tables.end(), [name](const auto& table) { return table.name == name; });
}

/// The tables that have changed since.
QList<MomentLanguage> newerTables()
{
    MomentLanguage polish = tableNamed(u"pl");
    polish.months.when = uR"(D\.? MMMM)";
    MomentLanguage czech = tableNamed(u"cs");
    std::swap(czech.months.plain, czech.months.then);
    czech.months.when = czechAfterDay;
    MomentLanguage ukrainian = tableNamed(u"uk");
    ukrainian.decidingWeekday = 4;
    ukrainian.weekdays = {u"неділя_понеділок_вівторок_середа_четвер_пʼятниця_субота", ukrainianInto,
                          u"неділю_понеділок_вівторок_середу_четвер_пʼятницю_суботу", ukrainianOf,
                          u"неділі_понеділка_вівторка_середи_четверга_пʼятниці_суботи"};
    MomentLanguage swedish = tableNamed(u"sv");
    swedish.shortWeekdays = {u"sön_mån_tis_ons_tors_fre_lör"};
    return {polish, czech, ukrainian, swedish};
}

} // namespace

const QList<MomentLanguage>& momentLanguages()
{
    static const QList<MomentLanguage> all = tables + newerTables();
    return all;
}

QStringView momentLanguageName(const QString& desktopLanguage)
{
    QStringList parts = desktopLanguage.toLower().replace(u'_', u'-').section(u'.', 0, 0).split(u'-');
    if (parts.first() == u"zh") {
        const bool isTraditional = std::any_of(parts.begin(), parts.end(), [](const QString& part) {
            return part == u"hant" || part == u"tw" || part == u"hk" || part == u"mo";
        });
        return isTraditional ? u"zh-tw" : u"zh-cn";
    }
    if (parts.first() == u"no" || parts.first() == u"nn") {
        return u"nb";
    }
    // The name of a script between language and country.
    parts.removeIf([](const QString& part) { return part.size() == 4; });
    for (; !parts.isEmpty(); parts.removeLast()) {
        const QString name = parts.join(u'-');
        const auto found =
            std::find_if(tables.begin(), tables.end(), [&](const auto& table) { return table.name == name; });
        if (found != tables.end()) {
            return found->name;
        }
    }
    return {};
}

} // namespace flitmark
