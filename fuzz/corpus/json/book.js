var book = {"name": "Gen", "n": 1.5e3, "chapters": {"1": {"1": "<p class=heading>x</p>a", "x": true}}};
