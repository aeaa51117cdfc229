// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/** Mandarin in Pinyin with tones, as the synthesizer takes it. */
export const mandarinSentences = `
jin1tian1 xia4wu3 san1dian3 wo3men5 kai1hui4 tao3lun4 yu4suan4
qing3 ba3 hui4yi4 gai3dao4 xing1qi1si4 xia4wu3
ming2tian1 zao3shang5 de5 huo3che1 ji3dian3 chu1fa1
wo3 xiang3 ding4 yi4zhang1 kao4 chuang1hu5 de5 zhuo1zi5
tian1qi4 yu4bao4 shuo1 zhou1mo4 yi4zhi2 hui4 xia4yu3
ta1 gei3 jia1na2da4 de5 peng2you5 xie3le5 yi4feng1 hen3chang2 de5 xin4
ta1 ba3 yu3san3 wang4zai4 gong1gong4 qi4che1 shang4 le5
bo2wu4guan3 zao3shang5 jiu3dian3 kai1men2 wan3shang5 liu4dian3 guan1men2
wang3 wan3 li3 jia1 yi4dian3 mian4fen3 he2 yan2
hai2zi5men5 zai4 hai3tan1 shang4 dui1le5 yi2zuo4 cheng2bao3
wo3 xiang3 tui4diao4 zhe4jian4 jia2ke4 yin1wei4 ta1 tai4 xiao3 le5
yi1sheng1 rang4 ta1 duo1 he1shui3 zao3dian3 shui4jiao4
mei2you3 ren2 zhi1dao4 zuo2tian1 wan3shang5 wei4shen2me5 ting2dian4
jing1li3 hui2lai2 zhi1qian2 bao4gao4 bi4xu1 xie3wan2
ta1men5 qi2zhe5 luo4tuo5 chuan1guo4le5 sha1mo4
he2 de5 jin4tou2 you3 yi4tiao2 xiao3chuan2 zai4 deng3 wo3men5
guo4le5 qiao2 yi3hou4 xiang4 zuo3 guai3
tu2shu1guan3 mai3le5 hen3duo1 guan1yu2 li4shi3 de5 shu1
ta1 de5 hui2da2 rang4 da4jia1 dou1 hen3 jing1ya4
fa1dong4ji1 leng3 de5 shi2hou5 you3 qi2guai4 de5 sheng1yin1
xia4ci4 fa1bu4 zhi1qian2 wo3men5 ying1gai1 tan2tan5 shi2jian1biao3
mei2gui5hua1 kai1 de5 shi2hou5 hua1yuan2 fei1chang2 piao4liang5
ta1 man4man4 de5 da3kai1 men2 kan4zhe5 hei1an4 de5 zou3lang2
cun1zi5 li3 de5 da4duo1shu4 ren2 shuo1 tong2yi4zhong3 yu3yan2
gong1si1 qiu1tian1 hui4 zhao1pin4 xin1 de5 gong1cheng2shi1
ba3 pan2zi5 fang4jin4 gui4zi5 ran2hou4 guan1shang4 chuang1hu5
xie3 qing1chu5 jian3dan1 de5 ju4zi5 xu1yao4 lian4xi2
shan1shang5 de5 xue3 dao4 chun1tian1 cai2 hui4 hua4
wo3 nai3nai5 xi3huan5 jiang3 ta1 zai4 nong2chang3 de5 gu4shi5
xue2sheng5men5 xia4ke4 yi3hou4 wen4le5 hen3duo1 wen4ti2
wo3men5 du4jia4 de5 shi2hou5 ji4de5 gei3 zhi2wu4 jiao1shui3
zhe4ge5 yue4 mian4bao1 de5 jia4ge2 you4 zhang3 le5
yi4zhi1 hei1mao1 zai4 qi4che1 ding3shang5 shui4jiao4
fa3guan1 ren4zhen1 de5 ting1le5 shuang1fang1 de5 yi4jian4
ni3 ke3yi3 zai4 di4er4ge5 chou1ti5 li3 zhao3dao4 wen2jian4
bao4feng1yu3 yi3hou4 qiao2 yi3jing1 xiu1hao3 le5
yin1yue4 bang1zhu4 wo3 ji2zhong1 zhu4yi4li4
fei1xing2yuan2 shuo1 fei1ji1 hui4 wan3 yi4dian3 jiang4luo4
ta1 mei3tian1 zao3shang5 dou1 dai4zhe5 gou3 rao4 hu2 san4bu4
zhe4dao4 cai4 xu1yao4 xin1xian1 de5 nai3lao4 he2 feng1mi4
ta1men5 ba3 chu2fang2 shua1cheng2le5 huang2se4
qiu2dui4 he2 jia1ren2 yi4qi3 qing4zhu4 sheng4li4
chi1 wan3fan4 de5 shi2hou5 tu1ran2 you3ren2 qiao1men2
xie4xie5 ni3 bang1 wo3 fan1yi4 zhe4fen4 wen2jian4
wo3 bu4 zhi1dao4 ta1 shen2me5 shi2hou5 hui2lai2
qing3 fa1 you2jian4 gei3 wo3 hao3 ma5
wo3men5 xia4ge5 xing1qi1 zai4 lian2xi4 ba5
zhe4ge5 ban3ben3 xiu1fu4le5 da3yin4ji1 qu1dong4 de5 wen4ti2
ma2fan5 ni3 ba3 he2tong5 fa1gei3 lv4shi1
wo3 di4di5 zheng4zai4 xue2xi2 la1 xiao3ti2qin2`
    .trim()
    .split('\n');
