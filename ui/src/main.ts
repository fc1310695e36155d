import "./styles/themes.css";
import "./styles/base.css";
import "./styles/buttons.css";
import "./styles/fields.css";
import { flushSync, mount } from "svelte";
import Page from "./frame/Page.svelte";
import { App } from "./state/app.svelte";
import { installCallbacks } from "./frame/callbacks";
import { tellPainted } from "./frame/first_painting";

const app = new App(window);
installCallbacks(window, app);
const started = app.start();

function putTogether() {
  mount(Page, { target: document.getElementById("app")!, props: { app } });
  flushSync();
}

const tell = () => void tellPainted(window, app, started);

if (app.isChild) {
  // A script of the program follows this one at once and looks for the panels.
  putTogether();
  setTimeout(tell);
} else {
  // The questions leave the page when this script has ended, so that the program looks its answers
  // up while the page is put together.
  setTimeout(() => {
    putTogether();
    tell();
  });
}
