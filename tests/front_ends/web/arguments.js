// The checks' arguments are those behind the page's address.
'use strict';
var Module = {
  arguments: [...new URLSearchParams(location.search)].map(([name, value]) => `--${name}=${value}`),
};
