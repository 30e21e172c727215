// Prints every row of every user table of a database as mdb-reader reads it, a line each:
// table, then per column (by name) a letter for the kind and the value, separated by tabs.
import { readFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { pathToFileURL } from 'node:url';

const [modules, file] = process.argv.slice(2);
const entry = createRequire(`${modules}/`).resolve('mdb-reader');
const { default: MDBReader } = await import(pathToFileURL(entry));

function shown(value) {
  if (value === null || value === undefined) return '-';
  if (typeof value === 'boolean') return `b${value}`;
  if (typeof value === 'number') return `n${value}`;
  if (value instanceof Date) return `d${value.getTime()}`;
  if (value instanceof Uint8Array) return `x${Buffer.from(value).toString('hex')}`;
  if (typeof value === 'string') return `t${Buffer.from(value, 'utf8').toString('hex')}`;
  return `n${Number(value)}`;
}

const reader = new MDBReader(readFileSync(file));
for (const name of reader.getTableNames()) {
  const table = reader.getTable(name);
  const columns = table.getColumnNames().sort();
  for (const row of table.getData())
    console.log([name, ...columns.map((column) => shown(row[column]))].join('\t'));
}
