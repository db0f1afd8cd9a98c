"use strict";

// A page of its own: what it shows stands in it, and does so as long as it is open.
const root = document;
const lifetime = new AbortController().signal;
const answer = JSON.parse(root.getElementById("answer").textContent);
const page = JSON.parse(root.getElementById("page").textContent);

