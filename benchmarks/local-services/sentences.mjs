// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/** What is spoken, in words only: digits and names can be written in more than one way. */
export const sentences = `
The train to the coast leaves early every morning.
Please send the signed contract to the lawyer before Friday.
We planted several apple trees behind the old wooden house.
The new version fixes the problem with the printer driver.
My brother is learning to play the violin in the evening.
Could you reserve a table for us near the window.
The weather forecast says that it will rain until the weekend.
She wrote a long letter to her friend in Canada.
Our meeting about the budget has been moved to another room.
He forgot his umbrella on the bus and came home wet.
The museum opens after breakfast and closes late in summer.
Add some flour and a little salt to the bowl.
The children built a castle of sand on the beach.
I would like to return this jacket because it is too small.
The doctor told him to drink more water and sleep longer.
Nobody knows why the lights went out last night.
The report must be finished before the manager comes back.
They travelled through the desert with camels and a guide.
A small boat was waiting for us at the end of the river.
Turn left after the bridge and follow the road to the church.
The library has bought many books about modern history.
Her answer surprised everybody in the room.
The engine makes a strange noise when it is cold.
We should talk about the schedule before the next release.
The garden looks beautiful when the roses are in bloom.
He opened the door slowly and looked into the dark corridor.
Most people in the village speak the same language.
The company will hire new engineers in the autumn.
Put the dishes in the cupboard and close the window.
It takes practice to write clear and simple sentences.
The mountain was covered with snow until the end of spring.
My grandmother tells stories about her life on the farm.
The students asked many questions after the lecture.
Remember to water the plants while we are on holiday.
The price of bread has risen again this month.
A black cat was sleeping on the warm roof of the car.
The judge listened carefully to both sides.
You can find the documents in the second drawer of my desk.
The bridge was repaired after the storm had damaged it.
Music helps me to concentrate on difficult work.
The pilot announced that we would land a little late.
Every morning she walks around the lake with her dog.
The recipe needs fresh cheese and a spoon of honey.
They painted the kitchen yellow and the hall light blue.
The team celebrated the victory with their families.
An unexpected visitor knocked at the door during dinner.
The soil is dry because it has not rained for weeks.
Thank you for your help with the translation.
`
    .trim()
    .split('\n');
