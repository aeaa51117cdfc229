// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

const lines = (text) => text.trim().split('\n');

/** A hundred terms as a dictionary may have them. */
export const terms = lines(`
Spring, Swift, Slack, Scala, Flask, Foster, Contract, Affect, Stephen, Replit
Canof, Docker, Kubernetes, PostgreSQL, GitHub, GitLab, YouTube, ChatGPT, OpenAI, TypeScript
JavaScript, PyTorch, TensorFlow, NumPy, Jupyter, Kafka, Redis, MongoDB, GraphQL, Terraform
Ansible, Jenkins, Grafana, Prometheus, Kibana, Elasticsearch, RabbitMQ, Nginx, Webpack, Svelte
Vercel, Netlify, Supabase, Firebase, Figma, Notion, Trello, Asana, Jira, Confluence
Obsidian, Zotero, Overleaf, LaTeX, Wayland, Wrenfold, Debian, Ubuntu, Fedora, Gentoo
Rust, Haskell, Erlang, Elixir, Kotlin, Dart, Julia, Perl, Ruby, Lisp
Siobhan, Nguyen, Kowalski, Schmidt, Matthias, Björk, Xiaoming, Priya, Joaquin, Aoife
WeChat, DingTalk, Feishu, Alipay, OneDrive, PowerPoint, SharePoint, Dropbox, Zoom, Webex
Qt, CMake, Valgrind, Wireshark, PulseAudio, PipeWire, systemd, Bluetooth, OAuth, Postman`)
    .join(', ')
    .split(', ');

/** A hundred sentences in which nobody means a term. */
export const ordinary = lines(`
Please cut the string before you wrap the present.
We go to the coast every spring with the children.
The night shift starts at ten and ends at six.
She put the plates in a stack beside the sink.
The kitchen scale says that it weighs two pounds.
He saw a flash of light over the hills.
The new road gets you there much faster.
I will contact the landlord about the broken window.
The medicine had no effect on the pain.
Steven wants to know whether you have eaten.
I will reply today if I find the time.
That would open the can of worms again.
He is able to walk to the doctor on his own.
The dock workers unloaded the ship before noon.
We need a swift reply from the office.
Cut them some slack, they worked all weekend.
My father kept coffee in an old flask.
They foster two children from the city.
You have to sign the contract before Friday.
Noise can affect how well you sleep.
The rust on the car door is getting worse.
She wore a ruby ring at the wedding.
A dart hit the middle of the board.
I have no notion of how the engine works.
The camera can zoom in on the moon.
The postman came late because of the snow.
We drove one drive after another to see the lights.
What is the power point of this argument.
We chat about the garden every morning.
Leave the keys in the drop box near the door.
They had to get hub caps for the old car.
The river runs to the confluence behind the mill.
He spoke with a slight lisp as a child.
The spell wore off as soon as the elixir was gone.
The forest was as dark as obsidian at night.
Trust me, the bus will come.
Just rest for a while and drink some water.
The crust of the bread was a little burnt.
They moved in June and July with all their things.
The pearl was the size of a pea.
She sat on the purl side of the knitted blanket.
He hurt his ankle at the start of the game.
My sister sings in the choir on Sundays.
The stock of paper in the printer is low.
Turn the knob and stick the label on the box.
The scar on his arm has almost gone.
They scaled the wall with a rope.
Flesh and bone are all that is left.
He fasted for two days before the operation.
The fence posts are made of oak.
The forest fire spread to the next valley.
A fluster of birds rose from the field.
We had a feast after the harvest.
She was too fast for the other runners.
The contrast of the picture is too strong.
The contacts on my phone have disappeared.
All efforts were in vain this time.
The effects of the storm can still be seen.
It is a matter of taste and not of money.
The master of the house came to the gate.
The text is in the latest edition of the paper.
He bought rubber gloves and a latex mattress.
The hostel has a web page with pictures.
A swelter of heat lay over the town.
The vessel left the harbour at dawn.
The fig tree in the yard gave no fruit.
The trail goes up to the lake and back.
A sauna after work is good for you.
The jury could not agree on a verdict.
Water the lawn over the weekend.
The land on the way to the farm is dry.
We found old wren nests in the fold of the hill.
The mayor gave a speech at the town hall.
The federal court will decide next week.
He wore a fedora and a long grey coat.
Eagles are rarely seen in this area.
The castle fell after a long siege.
She is a gentle teacher with a lot of patience.
A new gen of phones comes out each year.
The smith forged a blade for the museum.
Two coal miners told us about their lives.
Mathias and his aunt are coming to dinner.
Martha has a prior engagement that evening.
The pie was on the torch lit table outside.
The tens of thousands who flow into the stadium were loud.
The number on the pie chart is wrong.
The terrace form of the garden is unusual.
He gave an audible sigh and closed the book.
Graham finally answered the letter.
The rabbit in the garden ate the lettuce.
The engine and the exhaust need a new filter.
The red is too bright for this wall.
There is a fire at the military base.
Put the point of the needle through the cloth.
Share the point that you made with the others.
My blue tooth brush fell behind the shelf.
He makes c major sound sad on the piano.
The wire shark nets use is very strong.
The pulse of the patient is normal again.
The pipe and the wire run along the ceiling.`);

/** Fifty sentences as they may be heard when somebody says a term, and as they should be written. */
export const misheard = lines(`
We deploy it on kubernetties tomorrow. | We deploy it on Kubernetes tomorrow.
The cooper netties cluster is down. | The Kubernetes cluster is down.
Put the data into postgre sequel. | Put the data into PostgreSQL.
The table is in postgresequel now. | The table is in PostgreSQL now.
Push it to git hub before lunch. | Push it to GitHub before lunch.
The pipeline on gitlabb has failed. | The pipeline on GitLab has failed.
I watched it on you tube yesterday. | I watched it on YouTube yesterday.
Ask chat gpt for a summary. | Ask ChatGPT for a summary.
The tool was made by open ai last year. | The tool was made by OpenAI last year.
We write it in type script now. | We write it in TypeScript now.
The page needs java script to work. | The page needs JavaScript to work.
Train the network with pie torch. | Train the network with PyTorch.
We compared it with tensor flow. | We compared it with TensorFlow.
The matrix is a numpie array. | The matrix is a NumPy array.
Open the jupiter notebook again. | Open the Jupyter notebook again.
The messages go through kafca. | The messages go through Kafka.
We cache it in reddis for an hour. | We cache it in Redis for an hour.
The documents are in mongo db. | The documents are in MongoDB.
Write a graph ql query for it. | Write a GraphQL query for it.
The servers are described in terra form. | The servers are described in Terraform.
The machines are set up with ansibel. | The machines are set up with Ansible.
Look at the graffana board. | Look at the Grafana board.
The alarm comes from promethius. | The alarm comes from Prometheus.
Search the logs in kibanna. | Search the logs in Kibana.
The index is in elastic search. | The index is in Elasticsearch.
The queue runs on rabbit mq. | The queue runs on RabbitMQ.
The bundle is made by web pack. | The bundle is made by Webpack.
We host the site on versell. | We host the site on Vercel.
The form is hosted on netlifi. | The form is hosted on Netlify.
The users are kept in supa base. | The users are kept in Supabase.
The login uses fire base. | The login uses Firebase.
The design is in phigma. | The design is in Figma.
Add a card in trelo for it. | Add a card in Trello for it.
My references are in zotaro. | My references are in Zotero.
The paper is on over leaf. | The paper is on Overleaf.
Does it run on whaland already. | Does it run on Wayland already.
I dictate with ren fold every day. | I dictate with Wrenfold every day.
The server runs debbian twelve. | The server runs Debian twelve.
My laptop runs ubunto. | My laptop runs Ubuntu.
The app is written in cotlin. | The app is written in Kotlin.
Talk to shivaun about the offer. | Talk to Siobhan about the offer.
The doctor is called kovalski. | The doctor is called Kowalski.
Mister schmitt will join us. | Mister Schmidt will join us.
Send it to me on we chat. | Send it to me on WeChat.
The call is on ding talk. | The call is on DingTalk.
The slides are on share point. | The slides are on SharePoint.
Run it under val grind first. | Run it under Valgrind first.
I recorded it with wire shark. | I recorded it with Wireshark.
The sound goes through pulse audio. | The sound goes through PulseAudio.
The screen is shared by pipe wire. | The screen is shared by PipeWire.`).map((line) =>
    line.split(' | '),
);
