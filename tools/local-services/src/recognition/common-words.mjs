// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/**
 * English words in lower case that people say all the time. One that resembles a term is taken to
 * be meant as it is; the short ones are not even given a term's capitals.
 */
export const commonWords = new Set(
    `
a about above across act after again age ago all almost along already also although always am among
an and another any anyone anything are area arm around as ask asked at away back bad be because been
before began behind being believe below best better between big bit black blue board boat body book
both bottom box boy bring brought build building built business but buy by call called came can
cannot car care case catch cause center certain chair chance change check child children choose city
class clean clear close closed cloud code cold color come common company complete could country
course cut dark data day days deep did different do does doing done door down draw drive dry during
each early earth easy eat either else end enough even evening ever every everyone everything example
eye face fact fall family far fast father feel feet few field file files final find fine fire first
fish five floor follow food for form found four free friend friends from front full game gave get
girl give given go going gold gone good got government great green ground group grow had half hand
happy hard has have he head hear heard heart heat held hello help her here high him his hold home
hope hot hour hours house how however hundred idea if important in inside into is it its itself just
keep kept kind king knew know known land large last late later learn least leave led left less let
letter letters life light like line list listen little live local long look looked lost lot love low
machine made main make man many map mark market matter may maybe me mean means measure meet meeting
men message might mile mind minute minutes miss model money month months moon more morning most
mother move much music must my name near need never new news next night no none nor north not note
nothing now number numbers of off office often oh old on once one only open or order other our out
outside over own page paper part party pass past pay people perhaps person phone picture piece place
plan plant play please point possible power present press problem product program project pull put
question quick quickly quite rain ran reach read ready real really reason record red remember report
rest result right river road room round rule run said same saw say school sea second see seem seen
send sentence service set seven several shall shape she ship short should show side simple since
single sit six size sleep slow small so some someone something sometimes song soon sound south space
speak special stand star start state stay step still stood stop story street strong study such
summer sun sure system table take talk team tell ten test text than thank that the their them then
there these they thing things think third this those though thought thousand three through time
times to today together told tomorrow tonight too took top toward town travel tree tried true try
turn two under understand unit until up upon us use used usually very visit voice wait walk wall
want wanted war warm was watch water way we week weeks well went were what wheel when where whether
which while white who whole whose why will wind window wish with within without woman women wonder
word words work worked worker working world would write written wrong year years yes yet you young
your`
        .split(/\s+/)
        .filter(Boolean),
);
